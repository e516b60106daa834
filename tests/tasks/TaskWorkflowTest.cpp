// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskWorkflow.h"
#include "imaging/fncLoadPicture.h"
#include "tasks/PreviewStep.h"
#include "tasks/Replay.h"
#include "tasks/TaskColumns.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestDesktop.h"
#include "tests/tasks/TaskRows.h"

#include <gtest/gtest.h>
#include <map>
#include <tuple>

namespace tarsel::test {

namespace {

constexpr int shownWidth = 10; // of the picture as loaded

/// A picture whose background work is done when the test says so.
struct ShownPicture final : EditedPicture {
    explicit ShownPicture(TaskList& list) : tasks(list) {}
    ImageBox& box() override { return shown; }
    bool isBusy() const override { return bool(work); }
    bool showsTasks() const override { return optimized; }
    void showOriginal() override { showSnapshot(original); }
    void showTasks(bool editing) override {
        work = [this, editing] {
            shown.LoadFromMemory(original, 7);
            replayRows(shown, modProcessTasks::rowsToReplay(tasks.lvEdit, tasks.lvEditBatch,
                                                            &tasks.lvEditPreview, false, editing));
        };
    }
    void showSnapshot(const Picture& snapshot) override {
        work = nullptr;
        shown.LoadFromMemory(snapshot, 7);
    }
    void showPreview(const Picture& start, const TaskRow& row, PreviewReason) override {
        work = [this, start, row] {
            shown.LoadFromMemory(start, 7);
            previewStep(shown, row);
        };
    }
    void settle() {
        if (const auto done = std::exchange(work, nullptr))
            settled(errorNumberOf(done) != 0);
    }
    TaskList& tasks;
    Picture original = unevenPicture(shownWidth, 6);
    ImageBox shown = boxWith(original);
    bool optimized = false;
    std::function<void()> work;
    std::function<void(bool failed)> settled;
};

/// A page that adds as many columns as `amount` says. The defaults are one.
struct Page final : TaskOptions {
    void setBaseSize(int width, int) override { baseWidth = width; }
    void setPicture(const ImageBox& box) override { shownFor = box.Width(); }
    void open(int opened, const ImageBox& box) override {
        kind = opened;
        shownFor = box.Width();
        amount = stored;
    }
    TaskRow row() const override {
        return kind == 12  ? taskRow(12, {"0", amount, "0", "0", "0"})
               : kind == 8 ? taskRow(8, {"False", "5", "2", "3", "4"})
               : hasEye    ? taskRow(kind, {"1", "1", "4", "4"})
                           : taskRow(kind, {"0"});
    }
    std::function<void()> shownDefaults() override {
        return [this, shown = amount] { stored = shown; };
    }
    int kind = 0, shownFor = 0, baseWidth = 0;
    bool hasEye = false;
    const char* amount = "1";
    const char* stored = "1";
};

/// Plays what the user does, in words, and says in words what there is to see.
struct Editing {
    Editing() {
        picture.settled = [this](bool failed) { workflow.pictureSettled(failed); };
        tasks.append(taskRow(12, {"0", "100", "0", "0", "0"}));
    }
    /// The picture settles after each event, or only after "edit" and at the end.
    void play(const char* events, bool settling = true) {
        for (const QString& event : QString::fromLatin1(events).split(u' ', Qt::SkipEmptyParts)) {
            act(event.section(u'?', 0, 0), event.section(u'?', 1));
            while ((settling || event == QLatin1String("edit")) && picture.isBusy())
                picture.settle();
        }
        while (picture.isBusy())
            picture.settle();
    }
    void act(const QString& event, const QString& answer = {}) {
        desktop.answers.clear();
        if (!answer.isEmpty())
            desktop.answers.push_back(answer == QLatin1String("yes")  ? MessageAnswer::Yes
                                      : answer == QLatin1String("no") ? MessageAnswer::No
                                                                      : MessageAnswer::Cancel);
        const std::map<std::string, std::function<void()>> events{
            {"optimized", [&] { picture.optimized = true; }},
            {"edit", [&] { workflow.CmdPreviewEdit(); }},
            {"apply", [&] { workflow.cmdApply(); }},
            {"ok", [&] { workflow.cmdOK(); }},
            {"reset", [&] { workflow.cmdReset(); }},
            {"original", [&] { workflow.cmdOriginalImage(); }},
            {"row", [&] { clickFirstRow(); }},
            {"remove", [&] { changeRows([this] { tasks.remove(0); }); }},
            {"clear", [&] { changeRows([this] { tasks.clear(); }); }},
            {"add2", [&] { type("2"); }},
            {"add9", [&] { type("9"); }},
            {"bad", [&] { type("x"); }},
            {"eyes", [&] { selectEyes(); }},
            {"live", [&] { workflow.setLive(true); }},
            {"region", [&] { workflow.regionWanted(); }},
        };
        const auto known = events.find(event.toStdString());
        if (known != events.end())
            known->second();
        else
            workflow.choose(QStringLiteral("special group"), event);
    }
    void clickFirstRow() {
        tasks.lvEditPreview.selectOnly(0);
        workflow.rowClicked();
    }
    void changeRows(const std::function<void()>& change) {
        workflow.changeRows([change] {
            change();
            return true;
        });
    }
    void selectEyes() {
        page.hasEye = true;
        workflow.optionsChanged();
    }
    void type(const char* amount) {
        page.amount = amount;
        workflow.optionsChanged();
    }
    /// The two captions, the buttons that are on, the columns added to the picture on show, and the rows.
    std::string seen() const {
        const TaskPanelState state = workflow.state();
        std::string buttons;
        for (const auto& [isOn, letter] :
             {std::pair(state.cmdApply, 'P'), std::pair(state.cmdOK, 'O'), std::pair(state.cmdReset, 'R'),
              std::pair(state.cmdOriginalImage, 'G')})
            buttons += isOn ? letter : '-';
        const QString ok = state.isOpen ? state.okButton : QString(u'-');
        return state.editButton.trimmed().toStdString() + ' ' + ok.toStdString() + ' ' + buttons + " +" +
               std::to_string(picture.shown.Width() - shownWidth) + ' ' + std::to_string(tasks.count()) +
               " rows";
    }

    TestDesktop desktop;
    TaskList tasks;
    ShownPicture picture{tasks};
    Page page;
    TaskWorkflow workflow{picture, tasks, page};
};

} // namespace

/// The first row of the list adds 100 columns, each previewed or confirmed task one or two.
TEST(Editing, HasOneOutcomeForEachEventInEachStateHoweverSlowThePictureIs) {
    constexpr const char* closed = "Edit - ---- +0 1 rows";
    constexpr const char* nothing = "Finish Finish -O-G +100 1 rows";
    constexpr const char* chosen = "Finish Confirm PO-G +100 1 rows";
    constexpr const char* previewed = "Finish Confirm -ORG +101 1 rows";
    constexpr const char* changed = "Finish Confirm PORG +101 1 rows";
    constexpr const char* confirmed = "Finish Finish -O-G +101 2 rows";
    constexpr const char* emptied = "Finish Confirm PO-- +0 0 rows";
    const std::tuple<const char*, const char*> cases[] = {
        {"apply ok reset Canvas", closed},
        {"edit", nothing},
        {"edit ok", closed},
        {"edit edit", closed},
        {"edit apply reset add2", nothing},
        {"edit row edit", closed},
        {"edit Canvas", chosen},
        {"edit Canvas Nothing", nothing},
        {"edit Canvas add2", chosen},
        {"edit Canvas reset", chosen},
        {"edit Canvas ok", confirmed},
        {"edit Canvas edit", closed},
        {"edit Canvas original?no", chosen},
        {"edit Canvas original?yes", emptied},
        {"edit Canvas apply apply", previewed},
        {"edit Canvas add2 Canvas apply", "Finish Confirm -ORG +102 1 rows"}, // what was entered stays
        {"live edit Shadow", "Finish Confirm PO-G +122 1 rows"}, // tried, and given up without a question
        {"live edit Shadow Nothing", nothing},
        {"live edit Shadow edit", closed},
        {"optimized edit Canvas ok row edit edit",
         "Finish Finish -O-G +100 2 rows"}, // up to the selected row
        {"edit Canvas apply add2", changed},
        {"edit Canvas apply ok", confirmed},
        {"edit Canvas apply reset", chosen},
        {"edit Canvas apply edit", closed},
        {"edit Canvas apply Invert?cancel", previewed},
        {"edit Canvas apply Nothing?no", nothing},
        {"edit Canvas apply Nothing?yes", confirmed},
        {"edit Canvas apply original?yes", emptied},
        {"edit Canvas apply row", "Finish Confirm PORG +100 1 rows"},
        {"edit Canvas apply row apply", previewed},
        {"edit Canvas apply row ok", confirmed},
        {"edit Canvas apply row Nothing?no", nothing},
        {"edit Canvas apply add2 apply", "Finish Confirm -ORG +102 1 rows"},
        {"edit Canvas apply add2 ok", "Finish Finish -O-G +102 2 rows"},
        {"edit Canvas apply add2 reset", chosen},
        {"edit Canvas apply remove apply", "Finish Confirm -OR- +1 0 rows"},
        {"edit Canvas ok row Canvas", "Finish Confirm PO-G +101 2 rows"},
        {"optimized edit Canvas ok row edit", "Edit - ---- +1 2 rows"}, // what was confirmed
        {"edit Canvas ok clear", "Finish Finish -O-- +0 0 rows"},
        {"edit Canvas add2 ok add9 Canvas apply", "Finish Confirm -ORG +104 2 rows"}, // the 9 came too late
        {"edit Canvas apply remove ok", "Finish Finish -O-G +1 1 rows"},
        {"edit Canvas ok Canvas apply row Nothing?no", confirmed}, // the row shows less than was confirmed
        {"edit Canvas bad apply", "Finish Confirm PORG +100 1 rows"},
        {"edit Canvas bad apply add2 apply", "Finish Confirm -ORG +102 1 rows"},
        {"edit Canvas bad ok", "Finish Confirm PORG +100 1 rows"},
        {"edit Canvas apply bad Nothing?yes", "Finish Confirm PORG +100 1 rows"},
        {"optimized edit Canvas apply edit", closed},
        {"optimized edit Canvas ok edit", "Edit - ---- +1 2 rows"},
        {"live edit Canvas", chosen},
        {"live edit Canvas add2", "Finish Confirm -ORG +102 1 rows"},
        {"live edit Canvas add2 reset", chosen},
        {"live edit Canvas add2 ok", "Finish Finish -O-G +102 2 rows"},
        {"live edit Canvas add2 bad", "Finish Confirm PORG +100 1 rows"},
        {"live edit Canvas bad", "Finish Confirm PORG +100 1 rows"},
        {"live edit Canvas bad add2", "Finish Confirm -ORG +102 1 rows"},
        {"live edit Canvas add2 row", "Finish Confirm PORG +100 1 rows"},
        {"live edit Canvas add2 Nothing?no", nothing},
        {"edit Canvas add2 live", "Finish Confirm -ORG +102 1 rows"},
        {"live edit RedEye add2", "Finish Confirm P--G +100 1 rows"},
        {"edit RedEye region eyes ok", nothing}, // is never a row
        {"edit RedEye region", "Finish Confirm PO-G +100 1 rows"},
        {"edit RedEye region ok", nothing}, // without an eye there is nothing to confirm
        {"edit Canvas apply region", chosen},
    };
    for (const auto& [events, seen] : cases)
        for (const bool settling : {true, false}) {
            Editing editing;
            editing.play(events, settling);
            EXPECT_EQ(editing.seen(), seen) << events << (settling ? "" : ", all clicked at once");
            EXPECT_TRUE(editing.workflow.state().kind == 0 ||
                        editing.page.shownFor == editing.workflow.working().width())
                << events;
            EXPECT_TRUE(!QLatin1String(events).startsWith(QLatin1String("live")) ||
                        editing.desktop.reports.empty())
                << events << " makes no fuss";
        }
}

TEST(Editing, ACorrectionCanBeLostAsLongAsItIsOnShow) {
    const std::pair<const char*, bool> cases[] = {
        {"edit RedEye region eyes ok", true},
        {"edit RedEye region eyes ok row", true},
        {"edit RedEye region eyes ok edit", false},
        {"optimized edit RedEye region eyes ok edit", true},
        {"optimized edit RedEye region eyes ok edit edit", true},
        {"optimized edit RedEye region eyes ok edit row", false},
        {"optimized edit RedEye region eyes ok edit remove", false},
    };
    for (const auto& [events, isCorrected] : cases) {
        Editing editing;
        editing.play(events);
        EXPECT_EQ(editing.workflow.isCorrected(), isCorrected) << events;
    }
}

TEST(Editing, AsksAndNamesAndKeepsTheDefaultsOfWhatWasConfirmed) {
    Editing editing;
    editing.play("edit");
    EXPECT_EQ(editing.page.baseWidth, shownWidth);
    EXPECT_EQ(editing.workflow.state().title.toStdString(), "Options");
    editing.picture.shown.SelectionActive = true;
    editing.picture.shown.SelectEllipse(1, 1, 4, 4);
    editing.play("Invert");
    EXPECT_NE(errorNumberOf([&] { editing.picture.shown.CropToSelection(); }), 0) << "nothing is selected";
    EXPECT_EQ(editing.workflow.state().title.toStdString(), "Task Option - Invert");
    editing.play("Canvas add2 apply Canvas?no");
    EXPECT_EQ(editing.desktop.messages.back().text.toStdString(),
              "The image has been modified!\nDo you want to confirm the changes made to the image?");
    EXPECT_STREQ(editing.page.amount, "1") << "not confirmed";
    editing.play("add2 ok Canvas");
    EXPECT_STREQ(editing.page.amount, "2");
    editing.play("original");
    EXPECT_EQ(editing.desktop.messages.back().text.toStdString(),
              "Resetting to original image will erase all editing functions from the batch list!\n Do you "
              "want to continue?");
    EXPECT_EQ(editing.workflow.state().editButton.toStdString(), "  Finish");
    editing.picture.shown.StretchToFit = true;
    for (const auto& [size, message] :
         {std::pair(5, "Drag the region from its top left to its bottom right."),
          {500, "Please select a region of the picture first."}}) { // of no pixel
        editing.picture.shown.ControlWidth = editing.picture.shown.ControlHeight = float(size);
        editing.play("Crop ok");
        EXPECT_EQ(editing.desktop.messages.back().text.toStdString(), message);
    }
    EXPECT_TRUE(editing.tasks.count() == 2 && editing.desktop.reports.empty());
}

TEST(Editing, GoesOnFromThePictureThatTookTheOthersPlace) {
    Editing editing;
    editing.play("edit Canvas apply");
    editing.workflow.pictureReplacing();
    editing.workflow.cmdOK(); // is about the picture that goes
    editing.picture.original = unevenPicture(40, 6);
    editing.picture.showSnapshot(editing.picture.original);
    editing.workflow.pictureReplaced();
    editing.play("");
    EXPECT_EQ(editing.page.baseWidth, 40);
    editing.play("Canvas apply");
    EXPECT_EQ(editing.seen(), "Finish Confirm -ORG +131 1 rows");
    editing.play("Nothing?no Canvas bad apply Nothing");
    EXPECT_EQ(editing.workflow.state().kind, 0) << "of a preview that failed nothing is asked";
    editing.workflow.pictureReplacing();
    editing.act(QStringLiteral("clear"));
    editing.picture.shown.Clear();
    editing.workflow.pictureReplaced();
    EXPECT_FALSE(editing.workflow.isOpen()) << "there is nothing to edit any more";
    EXPECT_EQ(editing.tasks.count(), 0) << "the list is not that of a picture";
}

TEST(Previews, HaveOtherPixelsThanTheReplayWhereTheyMust) {
    const auto made = [](void (*run)(ImageBox&, const TaskRow&), const TaskRow& row, bool resample) {
        ImageBox box = boxWith(unevenPicture(33, 21));
        box.Resample = resample;
        run(box, row);
        return box.picture();
    };
    const auto replay = [](ImageBox& box, const TaskRow& row) { replayRow(box, row, 1); };
    const TaskRow size = taskRow(3, {"True", "20", "11"});
    EXPECT_TRUE(made(previewStep, size, false) == made(replay, size, true)) << "previews are always smooth";
    EXPECT_FALSE(made(previewStep, size, false) == made(replay, size, false));
    const TaskRow percent = taskRow(3, {"False", "56.4", ""});
    EXPECT_EQ(made(previewStep, percent, false).width(), 19) << "of 18.6";
    EXPECT_EQ(made(replay, percent, false).width(), 18) << "of 18.5, at 56 percent";
    const TaskRow lost = taskRow(9, {"False", "0", "0", "/nowhere/mark.png"});
    EXPECT_TRUE(made(previewStep, lost, false) == unevenPicture(33, 21))
        << "the user is asked for another file";
    EXPECT_FALSE(missingPictureText(lost).isEmpty());
    ImageBox eyes = boxWith(plainPicture(30, 20, 3, {200, 30, 40}));
    previewStep(eyes, taskRow(16, {"10", "5", "20", "15"}));
    EXPECT_LT(colorAt(eyes.picture(), 15, 10).red, 60);
    EXPECT_EQ(colorAt(eyes.picture(), 10, 5), (Rgb{200, 30, 40})) << "outside the ellipse";
    EXPECT_FALSE(eyes.SelectionActive);

    ImageBox box;
    EXPECT_EQ(recordedRow(box, {}, taskRow(2, {"True", "5", "0"})).columns[0].toStdString(), "True");
    EXPECT_EQ(recordedRow(box, {}, taskRow(2, {"False", "5", "0"})).columns[0].toStdString(), "True")
        << "stays on for the run";
}

/// Display pixels become picture pixels at this moment, and what is kept of them is converted again by the
/// next preview and by the replay.
TEST(Previews, ConvertWhatWasSelectedOnAScaledDisplay) {
    const auto boxOn = [](Size picture, Size display) {
        ImageBox box = boxWith(unevenPicture(picture.width, picture.height));
        box.StretchToFit = true;
        box.ControlWidth = float(display.width);
        box.ControlHeight = float(display.height);
        return box;
    };
    const auto recorded = [](ImageBox box, const TaskRow& row, int first, int count) {
        const TaskRow made = recordedRow(box, box.picture(), row);
        return QStringList(made.columns.begin() + first - 1, made.columns.begin() + first - 1 + count)
            .join(u' ')
            .toStdString();
    };
    const ImageBox half = boxOn({120, 80}, {60, 40}), same = boxOn({120, 80}, {120, 80});
    const ImageBox narrow = boxOn({120, 1}, {60, 1}); // scaled in one direction only
    const TaskRow crop = taskRow(8, {"False", "15", "8", "5", "2"});
    const TaskRow mark = taskRow(9, {"False", "0", "1", "/nowhere", "0", "4", "3"}); // y comes first
    const TaskRow text = textRow("9", "5", "14"), eye = taskRow(16, {"15", "8", "5", "2"});
    const std::tuple<std::string, std::string> cases[] = {
        {recorded(half, crop, 2, 6), "15 8 5 2 60 40"}, // as dragged
        {recorded(narrow, crop, 2, 6), "15 8 5 2 60 1"},
        {recorded(same, crop, 2, 6), "5 2 15 8  "},
        {recorded(half, mark, 6, 2), "8 6"},
        {recorded(narrow, mark, 6, 2), "4 3"},
        {recorded(half, text, 16, 2), "10 18"}, // in the middle of 20 points
        {recorded(same, text, 16, 2), "5 4"},
        {recorded(half, textRow("9", "10", "18"), 16, 2), "20 26"}, // without a new click
        {recorded(half, eye, 1, 4), "30 16 10 4"},
        {recorded(narrow, eye, 1, 4), "30 8 10 2"},
    };
    for (const auto& [made, expected] : cases)
        EXPECT_EQ(made, expected);

    const auto run = [&](void (*step)(ImageBox&, const TaskRow&), const TaskRow& row, ImageBox box) {
        step(box, row);
        return box.picture();
    };
    const auto replay = [](ImageBox& box, const TaskRow& row) { replayRow(box, row, 1); };
    const TaskRow forward = taskRow(8, {"False", "5", "2", "15", "8", "60", "40"});
    EXPECT_EQ(run(previewStep, forward, half).width(), 20);
    EXPECT_TRUE(run(previewStep, forward, half) == run(replay, forward, half));
    EXPECT_EQ(errorNumberOf([&] {
                  run(previewStep, taskRow(8, {"False", "15", "8", "5", "2", "60", "40"}), half);
              }),
              5)
        << "dragged to the left";
    EXPECT_TRUE(run(previewStep, textRow("9", "10", "18"), half) ==
                run(replay, textRow("9", "10", "18"), same));
    EXPECT_FALSE(run(previewStep, textRow("9", "10", "18"), half) ==
                 run(replay, textRow("9", "10", "18"), half));
}

} // namespace tarsel::test
