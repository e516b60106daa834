#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

namespace tarsel {

// The settings record. Every field, its type in the file and its default stand once, in the table of
// ConfigFields.h, from which the members below are made.

/// Member 2: the answers of the batch save dialog.
struct BatchSave {
    qint16 JpegQuality = 80;
    quint8 JpegProgressive = 0;
    quint8 JpegDepth = 0; ///< 0 24 bit, 1 8 bit grayscale
    QString RenameSuffix;
    QString RenamePrefix;
    QString Separator1 = QStringLiteral("_");
    QString Separator2 = QStringLiteral("_");
    qint16 NameOption = 0; ///< 0 retain, 1 hybrid, 2 generic
    QString RenameGeneric = QStringLiteral("Sample");
    QString RenameGenericPattern = QStringLiteral("[Starting 1]");
    quint8 DestinationOption = 0;
    QString DestinationFolder; ///< with a separator at its end; users trim it
    quint8 Overwrite = 1;
    qint16 Confirmed = 0;
    quint8 ImportIPTC = 0;
    quint8 ImportEXIF = 0;
    QString ImportIPTCFile;
    QString ImportEXIFFile;
    quint8 ProcessEditingList = 0;
};

} // namespace tarsel
