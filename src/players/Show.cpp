// SPDX-License-Identifier: MIT
#include "players/Show.h"

#include "players/Stage.h"
#include "players/platform/System.h"

#include <algorithm>

namespace tarsel::players {

namespace {

constexpr double frameTime = 1.0 / 60;
constexpr double longestWait = 3600;

class Run {
public:
    Run(Show& show, Window& window, bool isHosted) :
        m_show(show), m_window(window), m_isHosted(isHosted), m_stage(window) {}

    void untilEnd() {
        while (m_isRunning) {
            if (secondsNow() >= m_due && (m_window.isSeen() || m_isFirst))
                drawFrame();
            const double left = m_window.isSeen() ? m_due - secondsNow() : longestWait;
            for (auto event = m_window.wait(std::clamp(left, 0.0, longestWait)); event && m_isRunning;
                 event = m_window.wait(0))
                take(*event);
        }
    }

private:
    void drawFrame() {
        const double begun = secondsNow();
        m_show.draw(m_stage.canvas(), begun);
        m_stage.present();
        m_earliest = begun + frameTime;
        m_due = std::max(m_show.nextFrame(begun), m_earliest);
        m_isFirst = false;
    }

    void take(Event event) {
        if (event.kind == Event::Kind::Closed)
            m_isRunning = false;
        else if (event.kind == Event::Kind::Exposed)
            m_due = m_earliest;
        else if (!m_isHosted) // else the host's business
            input(m_stage.onCanvas(event));
    }

    void input(const Event& event) {
        m_isRunning = m_show.take(event, secondsNow());
        m_due = std::clamp(m_show.nextFrame(secondsNow()), m_earliest, std::max(m_due, m_earliest));
        if (m_show.hasPointer() != m_hasPointer) {
            m_hasPointer = !m_hasPointer;
            m_window.showPointer(m_hasPointer);
        }
    }

    Show& m_show;
    Window& m_window;
    bool m_isHosted;
    Stage m_stage;
    double m_due = 0;
    double m_earliest = 0; ///< for the next frame
    bool m_isFirst = true;
    bool m_isRunning = true;
    bool m_hasPointer = false;
};

} // namespace

void run(Show& show, Window& window, bool isHosted) {
    Run(show, window, isHosted).untilEnd();
}

} // namespace tarsel::players
