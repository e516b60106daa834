// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/PlacesBar.h"

#include "collections/FileQuestion.h"
#include "collections/TypedPath.h"
#include "controls/ActionTable.h"
#include "controls/PaleText.h"

#include <QCompleter>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QStandardPaths>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

namespace tarsel {

namespace {

constexpr const char* places[] = {"cmdHomeFolder", "cmdPicturesFolder", "cmdDesktopFolder",
                                  "cmdParentFolder"};

/// Completes "~/pic" like the complete path.
class PathCompleter final : public QCompleter {
public:
    using QCompleter::QCompleter;
    QStringList splitPath(const QString& path) const override {
        return QCompleter::splitPath(withHomeFolder(path));
    }
};

} // namespace

PlacesBar::PlacesBar(QAbstractItemModel* folders, FileQuestion& question, const ActionTable& actions,
                     QWidget* parent) :
    QWidget(parent),
    m_actions(actions), m_path(new QLineEdit(this)), m_question(question) {
    auto* bar = new QHBoxLayout;
    bar->setSpacing(2);
    for (const char* name : places)
        bar->addWidget(actions.makeButton(name, this));
    bar->addStretch(1);
    m_path->setObjectName(QStringLiteral("txtPath"));
    m_path->setAccessibleName(tr("Path of the folder"));
    m_path->setPlaceholderText(tr("Path of a folder"));
    keepPlaceholderReadable(*m_path);
    m_path->setCompleter(new PathCompleter(folders, m_path));
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    rows->addLayout(bar);
    rows->addWidget(m_path);

    using Paths = QStandardPaths;
    connectPlace("cmdHomeFolder", [] { return Paths::writableLocation(Paths::HomeLocation); });
    connectPlace("cmdPicturesFolder", [] { return Paths::writableLocation(Paths::PicturesLocation); });
    connectPlace("cmdDesktopFolder", [] { return Paths::writableLocation(Paths::DesktopLocation); });
    connectPlace("cmdParentFolder", [this] { return QFileInfo(m_folder).path(); });
    parent->addAction(&actions.action("cmdTypePath"));
    connect(&actions.action("cmdTypePath"), &QAction::triggered, m_path, [this] {
        m_path->setFocus(Qt::ShortcutFocusReason);
        m_path->selectAll();
    });
    connect(m_path, &QLineEdit::returnPressed, this, [this] { goTo(m_path->text()); });
}

void PlacesBar::connectPlace(const char* action, const std::function<QString()>& place) {
    connect(&m_actions.action(action), &QAction::triggered, this, [this, place] { goTo(place()); });
}

void PlacesBar::showFolder(const QString& folder) {
    m_folder = folder;
    m_path->setText(folder);
}

void PlacesBar::goTo(const QString& text) {
    m_question.ask([this, text, folder = m_folder] {
        return [this, typed = typedPath(text, folder)] { follow(typed); };
    });
}

/// A path that is refused stays in the field, so that it can be corrected.
void PlacesBar::follow(const TypedPath& typed) {
    const auto& [folder, file] = typed.place;
    if (folder.isEmpty()) {
        Q_EMIT pathRefused(typed.refusal);
        m_isRefused = true;
        return;
    }
    showFolder(folder);
    if (std::exchange(m_isRefused, false))
        Q_EMIT pathRefused({});
    Q_EMIT folderChosen(folder);
    if (!file.isEmpty())
        Q_EMIT fileChosen(file);
}

} // namespace tarsel
