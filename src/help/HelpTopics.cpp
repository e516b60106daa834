// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/HelpTopics.h"

namespace tarsel {

std::span<const HelpTopic> helpTopics() {
    static constexpr HelpTopic topics[] = {
        // the main window and its panes
        {"frmMain", "first-steps"},
        {"noticeBar", "first-steps#hints"},
        {"ftvBrowse", "browsing#folders"},
        {"picFileSystem", "browsing#folders"},
        {"picEditBar", "task-lists"},
        {"lvFolder", "browsing#files"},
        {"picFolder", "browsing#files"},
        {"lvPages", "basket"},
        {"picBasket", "basket"},
        {"picView", "preview"},
        {"PicMetadata", "metadata#in-the-window"},
        {"picTask", "tasks"},
        // dialogs
        {"frmSettings", "settings"},
        {"frmSaveSinglePage", "batch-save"},
        {"frmStatus", "batch-save#while-it-runs"},
        {"frmBatchResults", "batch-save#results"},
        {"frmErrorReport", "questions#error-reports"},
        {"frmJpegQuality", "preview#save-the-picture-on-show"},
        {"frmPrint", "printing"},
        {"frmExifEditAttribute", "metadata#change-exif"},
        {"frmExifNewAttribute", "metadata#change-exif"},
        {"frmIPTCKeywords", "metadata#change-iptc"},
        {"frmIPTCCategory", "metadata#change-iptc"},
        {"frmAlbum", "albums#the-dialog"},
        {"frmInsertMetadata", "albums#metadata-on-the-pages"},
        {"frmAlbumDescription", "basket#descriptions-and-titles"},
        {"frmCapture", "capture"},
        {"frmTwain", "scanning"},
        {"frmScanOptions", "scanning#options"},
        {"frmSaveAdvanced", "interactive-save"},
        {"frmScreenSaverOptions", "slide-shows#make-a-screen-saver-or-a-slide-show"},
        {"frmExecutable", "slide-shows#make-a-greeting"},
        {"frmManual", "index"},
        {"frmAbout", "questions#about-this-program"},
        // tasks, by the keys of the task panel
        {"Flip", "tasks#flip"},
        {"Rotate", "tasks#rotate"},
        {"Resize", "tasks#resize"},
        {"Blur", "tasks#blur"},
        {"Contrast", "tasks#contrast"},
        {"Brightness", "tasks#brightness"},
        {"Sharpen", "tasks#sharpen"},
        {"Crop", "tasks#crop"},
        {"Watermark", "tasks#watermarkmerge"},
        {"Text", "tasks#text"},
        {"Invert", "tasks#invert"},
        {"Canvas", "tasks#canvas"},
        {"Frame", "tasks#frame"},
        {"Mask", "tasks#mask"},
        {"Shadow", "tasks#shadow"},
        {"RedEye", "tasks#red-eye-correction"},
    };
    return topics;
}

QString helpTopic(const QString& name) {
    for (const HelpTopic& topic : helpTopics())
        if (name == QLatin1String(topic.name))
            return QString::fromLatin1(topic.place);
    return {};
}

} // namespace tarsel
