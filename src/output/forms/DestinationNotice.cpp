// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/DestinationNotice.h"

#include "base/FileIdentity.h"
#include "controls/ElidedLabel.h"
#include "controls/PlainToolTip.h"

#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace tarsel {

DestinationNotice::DestinationNotice(QWidget* parent) :
    QWidget(parent), m_destination(new ElidedLabel(this, Qt::ElideMiddle)), m_holdsSources(new QLabel(this)),
    m_problem(new QLabel(this)), m_create(new QPushButton(tr("Create the fol&der"), this)) {
    m_destination->setObjectName(QStringLiteral("lblNamesFolder"));
    m_holdsSources->setObjectName(QStringLiteral("lblSameFolder"));
    m_holdsSources->setWordWrap(true);
    QFont bold = font();
    bold.setBold(true);
    m_holdsSources->setFont(bold);
    m_problem->setObjectName(QStringLiteral("lblNamesFolderProblem"));
    m_problem->setWordWrap(true);
    m_problem->setTextFormat(Qt::PlainText);
    m_create->setObjectName(QStringLiteral("cmdCreateFolder"));
    m_create->setAutoDefault(false);
    setFocusProxy(m_create);
    connect(m_create, &QPushButton::clicked, this, &DestinationNotice::createFolders);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_destination);
    column->addWidget(m_holdsSources);
    column->addWidget(m_problem);
    column->addWidget(m_create, 0, Qt::AlignLeft);
    show({});
}

void DestinationNotice::show(const QStringList& folders, const QStringList& sourceFolders) {
    m_folders = folders;
    m_destination->setVisible(!folders.isEmpty());
    if (folders.size() == 1)
        m_destination->setText(tr("Files will be saved to %1").arg(folders.first()));
    else
        m_destination->setText(tr("Files will be saved to %n folders", nullptr, int(folders.size())));
    m_destination->setToolTip(plainToolTip(folders.join(QLatin1Char('\n'))));
    showSharedFolders(sourceFolders);
    showProblem();
}

void DestinationNotice::showSharedFolders(const QStringList& sourceFolders) {
    QSet<FileIdentity> sources;
    for (const QString& folder : sourceFolders)
        sources << FileIdentity::of(folder);
    const bool shared = std::any_of(m_folders.begin(), m_folders.end(), [&](const QString& folder) {
        return QFileInfo::exists(folder) && sources.contains(FileIdentity::of(folder));
    });
    m_holdsSources->setVisible(shared);
    m_holdsSources->setText(m_folders.size() == 1 ? tr("The sources are in the same folder.")
                                                  : tr("Some of these folders are those of the sources."));
}

void DestinationNotice::showProblem() {
    const auto first = [&](auto problem) {
        const auto found = std::find_if(m_folders.begin(), m_folders.end(), problem);
        return found == m_folders.end() ? QString() : *found;
    };
    const QString missing = first([](const QString& folder) { return !QFileInfo::exists(folder); });
    const QString unusable = first([](const QString& folder) {
        const QFileInfo info(folder);
        return info.exists() && !(info.isDir() && info.isWritable());
    });
    QString text;
    if (!unusable.isEmpty())
        text = QFileInfo(unusable).isDir() ? tr("You may not write to the folder %1.").arg(unusable)
                                           : tr("%1 is not a folder.").arg(unusable);
    else if (!missing.isEmpty())
        text = tr("The folder %1 does not exist.").arg(missing);
    m_problem->setText(text);
    m_problem->setVisible(!text.isEmpty());
    m_create->setVisible(unusable.isEmpty() && !missing.isEmpty());
    setUsable(text.isEmpty());
}

void DestinationNotice::setUsable(bool usable) {
    if (usable != std::exchange(m_usable, usable))
        Q_EMIT usableChanged(usable);
}

void DestinationNotice::createFolders() {
    for (const QString& folder : std::as_const(m_folders)) {
        if (QDir().mkpath(folder))
            continue;
        m_problem->setText(tr("The folder %1 could not be created.").arg(folder));
        return;
    }
    showProblem();
    Q_EMIT folderCreated();
}

} // namespace tarsel
