// SPDX-License-Identifier: GPL-3.0-or-later
// The large pictures of an album. Without this script the links lead to the picture files.
"use strict";

(() => {
    const dialog = document.getElementById("lightbox");
    const links = Array.from(document.querySelectorAll(".view"));
    if (!dialog.showModal || links.length === 0)
        return;

    const part = id => document.getElementById(id);
    const itemOf = index => links[index].closest("li");
    let current = -1; // -1 while the dialog is closed
    let hasEntry = false; // the browser's history has an entry for the open dialog

    // --- what is on show

    function makeImage(index) {
        const link = links[index], thumbnail = link.querySelector("img");
        const image = new Image();
        image.alt = thumbnail.alt;
        image.draggable = false;
        image.style.maxWidth = link.dataset.width + "px";
        image.style.maxHeight = link.dataset.height + "px";
        image.style.backgroundImage = `url("${thumbnail.currentSrc || thumbnail.src}")`;
        image.onload = () => { image.style.backgroundImage = "none"; };
        load(image, index);
        return image;
    }

    function load(image, index) {
        const link = links[index];
        image.sizes = `min(100vw, calc(100vh * ${link.dataset.width / link.dataset.height}))`;
        image.srcset = link.dataset.sources;
        image.src = link.href;
    }

    function showFacts(index) {
        const facts = itemOf(index).querySelector(".facts");
        const isShown = facts !== null && part("details").getAttribute("aria-expanded") === "true";
        part("details").hidden = facts === null;
        part("facts").hidden = !isShown;
        part("facts").replaceChildren(...(isShown ? [facts.cloneNode(true)] : []));
        dialog.classList.toggle("with-facts", isShown);
    }

    function show(index) {
        current = (index + links.length) % links.length;
        const link = links[current];
        part("view").replaceChildren(makeImage(current));
        part("position").textContent =
            part("position").dataset.format.replace("%1", current + 1).replace("%2", links.length);
        const caption = itemOf(current).querySelector("figcaption");
        part("caption").replaceChildren(...caption.cloneNode(true).childNodes);
        part("original").hidden = !link.dataset.original;
        part("original").href = link.dataset.original || link.href;
        part("previous").hidden = part("next").hidden = links.length < 2;
        showFacts(current);
        load(new Image(), (current + 1) % links.length);
        load(new Image(), (current + links.length - 1) % links.length);
    }

    // --- opening, moving, closing: the address names the picture, and "back" closes it

    const address = index => "#" + itemOf(index).id;
    const indexInAddress = () => links.findIndex((link, index) => address(index) === location.hash);

    function open(index) {
        const isOpening = !dialog.open;
        if (isOpening)
            dialog.showModal();
        show(index);
        if (isOpening)
            part("close").focus();
    }

    function moveTo(index) {
        show(index);
        history.replaceState(null, "", address(current));
    }

    function close() {
        if (hasEntry)
            history.back(); // closes in followAddress
        else
            dialog.close();
    }

    function followAddress() {
        const index = indexInAddress();
        if (index >= 0)
            return open(index);
        dialog.close();
    }

    links.forEach((link, index) => link.addEventListener("click", event => {
        if (event.ctrlKey || event.metaKey || event.shiftKey || event.altKey)
            return;
        event.preventDefault();
        history.pushState(null, "", address(index));
        hasEntry = true;
        open(index);
    }));
    addEventListener("popstate", followAddress);
    dialog.addEventListener("cancel", event => {
        event.preventDefault();
        close();
    });
    dialog.addEventListener("close", () => {
        if (current < 0)
            return;
        const link = links[current];
        current = -1;
        hasEntry = false;
        part("view").replaceChildren();
        if (indexInAddress() >= 0)
            history.replaceState(null, "", location.pathname + location.search);
        link.focus();
        link.scrollIntoView({block: "nearest"});
    });

    // --- buttons, keys, fingers

    part("close").addEventListener("click", close);
    part("previous").addEventListener("click", () => moveTo(current - 1));
    part("next").addEventListener("click", () => moveTo(current + 1));
    part("details").addEventListener("click", () => {
        const isExpanded = part("details").getAttribute("aria-expanded") === "true";
        part("details").setAttribute("aria-expanded", String(!isExpanded));
        showFacts(current);
    });

    const targets = {
        ArrowLeft: () => current - 1,
        ArrowRight: () => current + 1,
        Home: () => 0,
        End: () => links.length - 1,
    };

    function keepFocusInside(event) {
        const stops = Array.from(dialog.querySelectorAll("a, button, [tabindex]"))
            .filter(element => element.getClientRects().length > 0);
        const from = event.shiftKey ? stops[0] : stops[stops.length - 1];
        if (document.activeElement !== from && stops.includes(document.activeElement))
            return;
        event.preventDefault();
        stops[event.shiftKey ? stops.length - 1 : 0].focus();
    }

    dialog.addEventListener("keydown", event => {
        if (event.key === "Tab")
            return keepFocusInside(event);
        if (!(event.key in targets) || event.ctrlKey || event.metaKey || event.altKey)
            return;
        event.preventDefault();
        moveTo(targets[event.key]());
    });

    const fingers = new Map(); // where each finger came down
    let isSwipe = false;
    const stage = dialog.querySelector(".stage");
    stage.addEventListener("pointerdown", event => {
        if (event.pointerType === "mouse")
            return;
        fingers.set(event.pointerId, {x: event.clientX, y: event.clientY});
        isSwipe = fingers.size === 1 && (!window.visualViewport || visualViewport.scale < 1.05);
    });
    stage.addEventListener("pointercancel", event => fingers.delete(event.pointerId));
    stage.addEventListener("pointerup", event => {
        const start = fingers.get(event.pointerId);
        fingers.delete(event.pointerId);
        if (!start || !isSwipe)
            return;
        const x = event.clientX - start.x, y = event.clientY - start.y;
        if (Math.abs(x) > 40 && Math.abs(x) > 1.5 * Math.abs(y))
            moveTo(x < 0 ? current + 1 : current - 1);
    });

    if (indexInAddress() >= 0)
        open(indexInAddress());
})();
