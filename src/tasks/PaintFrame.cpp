// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/frmFrameDummy.h"
#include "tasks/modProcessTasks.h"

namespace tarsel {

namespace {

/// Lays pieces on a box. Some pieces take the measure of another one, and rows of pieces run past the far
/// edge: the merge cuts them off, and the corners laid afterwards cover their ends.
class FramePainter {
public:
    FramePainter(ImageBox& box, const BorderPieces& pieces) : m_box(box), m_pieces(pieces) {}

    /// Right and bottom pieces overlap the picture by two pixels.
    void growCanvas() const {
        constexpr int overlap = 2;
        m_box.Crop(-m_pieces.pleft.width(), -m_pieces.pTop_left.height(),
                   m_pieces.pRight.width() + m_box.Width() - overlap,
                   m_pieces.pBottom_left.height() + m_box.Height() - overlap);
    }

    void layTop() const {
        lay(m_pieces.pTop_left, 0, 0);
        layRow(m_pieces.pTop_middle, 0);
        lay(m_pieces.pTop_right, m_box.Width() - m_pieces.pTop_right.width(), 0);
    }

    /// `ends`, when there are any, stand between the corners and the repeated pieces.
    void laySides(const StripEnds* ends) const {
        int y = m_pieces.pTop_left.height();
        if (ends) {
            lay(ends->left_top, 0, y);
            lay(ends->right_top, m_box.Width() - ends->left_top.width(), y);
            y += ends->left_top.height();
        }
        for (; y < m_box.Height(); y += m_pieces.pleft.height()) {
            lay(m_pieces.pleft, 0, y);
            lay(m_pieces.pRight, m_box.Width() - m_pieces.pRight.width(), y);
        }
        if (ends) {
            y = m_box.Height() - (m_pieces.pTop_left.height() + ends->left_top.height());
            lay(ends->left_bottom, 0, y);
            lay(ends->right_bottom, m_box.Width() - ends->right_bottom.width(), y);
        }
    }

    void layBottom() const {
        const int y = m_box.Height() - m_pieces.pBottom_left.height();
        lay(m_pieces.pBottom_left, 0, y);
        layRow(m_pieces.pBottom_middle, y);
        lay(m_pieces.pBottom_right, m_box.Width() - m_pieces.pTop_right.width(), y);
    }

private:
    void lay(const Picture& piece, int x, int y) const {
        m_box.MergeY = y;
        m_box.MergeX = x;
        m_box.MergeHandle(piece);
    }

    void layRow(const Picture& middle, int y) const {
        for (int x = m_pieces.pTop_left.width(); x < m_box.Width(); x += m_pieces.pTop_middle.width())
            lay(middle, x, y);
    }

    ImageBox& m_box;
    const BorderPieces& m_pieces;
};

} // namespace

void modProcessTasks::subPaintFrame(ImageBox& box, int number, int resizeCanvas, bool corners) {
    const FramePainter painter(box, frmFrameDummy::border(number));
    if (resizeCanvas == 1)
        painter.growCanvas();
    box.MergeStyle = 1;
    painter.layTop();
    painter.laySides(corners ? &frmFrameDummy::stripEnds() : nullptr);
    painter.layBottom();
}

} // namespace tarsel
