// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileStamp.h"
#include "codecs/PictureHeader.h"
#include "codecs/SaveSettings.h"
#include "embedded/MetadataStore.h"
#include "pixels/Color.h"
#include "pixels/Picture.h"

#include <QDateTime>
#include <QString>
#include <functional>
#include <optional>
#include <stop_token>

namespace tarsel {

class PictureFile;
struct DecodedPicture;
struct Size;

/// The font of ImageBox::DrawText.
struct TextFont {
    QString Name;
    double Size = 14; ///< points, at 96 points to the inch's 72: a 12 point font is 16 pixels high
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
};

enum class SelectionShape { None, Rectangle, Ellipse };

/// Edges in picture coordinates; right and bottom are the first pixel outside.
struct Edges {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// Holds one picture, changes it in place, saves it. A stateful object: set its state first, call an
/// operation last; a setting stays in force until it is written again, also from picture to picture. No
/// widget: a view shows one.
///
/// Settings are plain members; what is computed or does work is a function. Coordinates are picture pixels
/// with the origin top left. A failing member raises TrappedError; loading alone has the soft failure
/// LoadFailed. Operations on an empty box raise error 5. Each box may be used on any thread, one at a time.
class ImageBox {
public:
    // --- picture in and out
    // -----------------------------------------------------------------------------------
    void Clear(); ///< the picture and its metadata go; settings stay
    bool HasImage() const { return !m_picture.isNull(); }
    int Width() const { return m_picture.width(); }
    int Height() const { return m_picture.height(); }
    int BitsPerPixel() const { return m_picture.isNull() ? 0 : m_picture.bitsPerPixel(); }
    int PageNumber = 1; ///< page that the next load reads, from 1
    /// Pages of a file, which need not be the one held; 1 for formats without pages and for files that can't
    /// be read.
    static int PageCount(const QString& path, const std::stop_token& stop = {});
    /// Decodes by content. On failure the box is empty and LoadFailed is true; the error (0x8000FFFF for a
    /// file that its decoder can't make sense of, 53 for a missing one, 18 for a stop) is raised.
    void LoadFromFile(const QString& path, const std::stop_token& stop = {});
    /// One page, from 1, of a file that is already open; PageNumber doesn't count.
    void LoadPage(const PictureFile& file, int page, const std::stop_token& stop = {});
    /// The first page for drawing it: at least as large as `drawn` says for its size, and smaller than it is
    /// where the format can decode so faster.
    void LoadReduced(const PictureFile& file, const std::function<PixelSize(PixelSize)>& drawn,
                     const std::stop_token& stop = {});
    /// The size of the picture of which LoadReduced loaded a smaller one, until it changes; else its own.
    PixelSize FullSize() const { return m_fullSize ? *m_fullSize : PixelSize{Width(), Height()}; }
    void setFullSize(PixelSize size) { m_fullSize = size; }
    bool LoadFailed() const { return m_loadFailed; }
    /// What is wrong with the file whose picture was loaded in part; empty for an undamaged one.
    QString LoadDamage() const { return m_loadDamage; }
    /// Encodes by the path's extension with the save settings and the metadata held, through the safe writer.
    /// Once the writing has begun a stop is ignored.
    void SaveToFile(const QString& path, const std::stop_token& stop = {});
    /// The metadata of the page PageNumber alone, by the file's content. Error 481 for unknown content. The
    /// next SaveMetadataOnly refuses to write when the file is another one by then.
    void LoadMetadataOnly(const QString& path);
    /// Puts the metadata held into an existing JPEG, TIFF or PSD file, whose pixels, pages and layers keep
    /// their bytes. Error 5 for another format, and as saveMetadata().
    void SaveMetadataOnly(const QString& path);
    /// The bytes that SaveToFile writes for this extension. They are kept for the next call, until picture,
    /// settings or metadata change. Error 5 for a format that isn't written.
    QByteArray encoded(const QString& extension) const;
    /// How many bytes these are, by the index of the format in saveFormats().
    qint64 EncodedSize(int format) const;
    /// Adds the picture as a page at the end of a document, which is made when it is missing, by the save
    /// settings. A failure leaves the old document as it was. The third argument is 0. The title is that of
    /// the page in TIFF, of a new document in PDF.
    void AddPageTiff(const QString& path, const QString& title, int reserved = 0);
    void AddPagePdf(const QString& path, const QString& title, int reserved = 0);
    /// Format 7 is the shared picture itself: costs nothing until a pixel changes.
    Picture SaveToMemory(int format) const;
    void LoadFromMemory(const Picture& snapshot, int format);
    /// Takes over what another box loaded: picture, metadata, damage. Settings stay, the selection goes.
    void TakeLoaded(ImageBox&& loaded);
    /// Replaces the picture. It carries no metadata: those held go.
    void setPictureHandle(const PictureHandle& handle, const QString& damage = {});
    PictureHandle pictureHandle() const { return m_picture; }
    const Picture& picture() const { return m_picture; }

    // --- display
    // ----------------------------------------------------------------------------------------------
    bool StretchToFit = false;
    double Zoom = 100.0; ///< percent, when not stretched
    float ControlWidth = 0;
    float ControlHeight = 0;
    QString Tag;
    bool Visible = true;
    /// Size of the picture as drawn: stretched, the largest size of the picture's proportions inside the
    /// control; else the picture's own. Never 0 while a picture is held.
    int DisplayWidth() const;
    int DisplayHeight() const;
    /// In sRGB, as all colours of a box are, whatever profile the picture has. Error 5 outside the picture.
    Color PixelColor(int x, int y) const;

    // --- fill
    // -------------------------------------------------------------------------------------------------
    Color BackColor = 0xFFFFFF; ///< fill of every operation that creates new area
    bool BackColorTransparent = false;

    // --- tone and filters, on the entire picture
    // ---------------------------------------------------------------
    void Brightness(int level, bool red, bool green, bool blue); ///< 0 to 100, 50 is neutral
    void Contrast(int level, bool red, bool green, bool blue);   ///< 0 to 100, 50 is neutral
    void Sharpen(int level);                                     ///< 1 to 10
    void Blur(int level);                                        ///< 1 to 10
    void Negative();

    // --- geometry
    // ---------------------------------------------------------------------------------------------
    bool Resample = false;    ///< smooth resampling in Rotate and ResizeTo
    void Flip(int direction); ///< 0 mirrors left and right, 1 top and bottom
    /// Clockwise about the centre; the canvas grows to hold the turned picture, new area takes BackColor.
    void Rotate(float degrees);
    void Resize(int width, int height);   ///< always smooth
    void ResizeTo(int width, int height); ///< smooth when Resample is true, else nearest neighbour
    void Scale(float percent);            ///< smooth; at least 1 pixel remains
    /// The picture becomes that rectangle; edges beyond the picture enlarge the canvas with BackColor.
    void Crop(int left, int top, int right, int bottom);

    // --- selection
    // --------------------------------------------------------------------------------------------
    bool SelectionActive = false;
    void SelectRectangle(int x1, int y1, int x2, int y2);
    void SelectEllipse(int x1, int y1, int x2, int y2);
    void ClearSelection();
    void CropToSelection(); ///< outside an ellipse the picture takes BackColor
    /// Takes the red cast from the pixels inside the selection, which stays. Error 5 when nothing is
    /// selected.
    void RedEyeCorrection();

    // --- text
    // -------------------------------------------------------------------------------------------------
    TextFont Font;
    Color TextColor = 0;
    Color TextBackColor = 0xFFFFFF;
    bool TextTransparent = true;
    float TextAngle = 0;   ///< degrees, counter-clockwise; -90 runs downward
    int TextAlignment = 0; ///< where x is on the text: 0 left, 1 centre, 2 right
    bool TextAntiAlias = true;
    int TextWidth(const QString& text) const;
    int TextHeight(const QString& text) const;
    void DrawText(int x, int y, const QString& text);

    // --- merging
    // ----------------------------------------------------------------------------------------------
    int MergeStyle = 0; ///< 0 centred, 1 at (MergeX, MergeY), 2 tiled, 3 wrapped
    int MergeX = 0;
    int MergeY = 0;
    bool MergeTransparent = false; ///< pixels of MergeTransparentColor are not laid down
    Color MergeTransparentColor = 0;
    double MergeTransparency = 0;                  ///< percent, 0 is fully opaque
    void MergeFile(const QString& path);           ///< 53 when missing, 481 when it can't be read
    void MergeHandle(const PictureHandle& handle); ///< of a picture in sRGB

    // --- saving
    // -----------------------------------------------------------------------------------------------
    int ColorFormat = 0;
    int JpegQuality = 80;
    bool JpegEncoding = false;
    bool GifCompression = true;
    int TiffCompression = 0;
    SaveSettings saveSettings() const;

    // --- metadata of the last load
    // ----------------------------------------------------------------------------
    int ExifCount() const { return m_metadata.ExifCount(); }
    QString ExifName(int index) const { return m_metadata.ExifName(index); }
    QString ExifValue(int index) const { return m_metadata.ExifValue(index); }
    QString ExifValueByName(const QString& name) const { return m_metadata.ExifValueByName(name); }
    bool ExifSet(const QString& name, const QString& value) { return m_metadata.ExifSet(name, value); }
    bool ExifDelete(const QString& name) { return m_metadata.ExifDelete(name); }
    void ExifClear() { m_metadata.ExifClear(); }
    bool HasIptc() const { return m_metadata.HasIptc(); }
    void IptcClear() { m_metadata.IptcClear(); }
    void IptcLoadFromFile(const QString& path) { m_metadata.IptcLoadFromFile(path); }
    void IptcSaveToFile(const QString& path) const { m_metadata.IptcSaveToFile(path); }
    static QDateTime ExifTextToDate(const QString& text) { return exifTextToDate(text); }
    static QString ExifDateToText(const QDateTime& date) { return exifDateToText(date); }
    MetadataStore& metadata() { return m_metadata; }
    const MetadataStore& metadata() const { return m_metadata; }

private:
    Rgb inPicture(Color color) const; ///< in the colours of the picture's profile
    void mergeLayer(const PictureHandle& handle, Rgb transparentColor);
    /// What was encoded last, and from what.
    struct Encoded {
        QString format; ///< its usual extension
        SaveSettings settings;
        EmbeddedMetadata metadata;
        QByteArray bytes;
    };

    void takeDecoded(DecodedPicture decoded);
    void requireImage() const;
    void requireSelection() const;
    Size displaySize() const;
    /// The picture, about to be changed: what was encoded of it goes.
    Picture& pictureToChange();

    Picture m_picture;
    MetadataStore m_metadata;
    mutable std::optional<Encoded> m_encoded; ///< of the picture as it is
    std::optional<FileStamp> m_metadataStamp; ///< when LoadMetadataOnly read the file
    std::optional<PixelSize> m_fullSize;      ///< of a picture that was loaded smaller
    bool m_loadFailed = false;
    QString m_loadDamage;
    SelectionShape m_selectionShape = SelectionShape::None;
    Edges m_selection;
};

} // namespace tarsel
