// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/FormBinding.h"
#include "tasks/forms/TaskOptionPage.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QSlider;

namespace tarsel {

/// A page whose form and table of columns say everything; classes of single kinds add what is special.
class OptionPage : public TaskOptionPage {
    Q_OBJECT
public:
    using SetUp = void (*)(QWidget* page); ///< fills the page from its form

    OptionPage(int kind, TaskDefaults& defaults, SetUp setUp, QWidget* parent);

    void setPicture(QSize, QSize) override {}
    void showRow(const TaskRow& row) final;
    TaskRow row() const override;
    TaskDefaults shownDefaults() const final;
    void setLive(bool live) final;
    void endSelection(PictureSelection selection) override;
    void setLocation(QPoint location) override;
    QPoint location() const override { return m_location; }
    void setBackColor(Color color) override;
    void hoverBackColor(std::optional<Color> color) override;
    void showRegion(QPoint start, QPoint end) override;
    void keepLocation(const TaskRow&) override {}

protected:
    /// Whether the controls are being filled by the program.
    bool isFilling() const { return m_isFilling; }
    virtual void showPicture() {}               ///< after the settings: what depends on the picture's size
    virtual void showSpecial(const TaskRow&) {} ///< after the columns: what the table doesn't say
    void takeChange();                          ///< emits `changed` unless the program fills the controls
    void setKeptLocation(QPoint location) { m_location = location; }
    /// Writes the corners of the region, if there is one, to four columns.
    void writeRegion(TaskRow& row, int firstColumn) const;
    static void setText(TaskRow& row, int column, const QString& text);

private:
    struct ShownColumn {
        const TaskColumn* column;
        FieldControl control;

        void show(const QString& text) const;
        QString text() const;
    };

    void bindSettings();
    void bindColumns();
    void addCompanion(const TaskColumn& column);
    void connectSelectionButtons();

    const int m_kind;
    TaskDefaults& m_defaults;
    std::vector<FormField<TaskDefaults>> m_fields;
    std::unique_ptr<FormBinding<TaskDefaults>> m_binding;
    std::vector<ShownColumn> m_columns;
    std::vector<QSlider*> m_sliders; ///< whose number shows while they are dragged
    QPoint m_location;
    std::optional<std::pair<QPoint, QPoint>> m_region; ///< since the page was shown
    bool m_isFilling = false;
};

} // namespace tarsel
