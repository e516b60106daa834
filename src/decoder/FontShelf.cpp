// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/FontShelf.h"

#include "bytes/Descriptor.h"

#include <array>
#include <cmath>
#include <fcntl.h>
#include <fontconfig/fontconfig.h>
#include <map>
#include <string>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace tarsel::decoder {

namespace {

constexpr int styles = 4; ///< plain, bold, italic, both
/// The families that drawings ask for, those with the same widths, and what takes their place without any.
constexpr std::array<std::array<const char*, 6>, 3> families = {
    {{"Arial", "Liberation Sans", "Arimo", "Nimbus Sans", "Helvetica", "sans-serif"},
     {"Times New Roman", "Liberation Serif", "Tinos", "Nimbus Roman", "Times", "serif"},
     {"Courier New", "Liberation Mono", "Cousine", "Nimbus Mono PS", "Courier", "monospace"}}};
/// Mean widths of the letters from a to z in ems, plain and bold, of the fonts that drawings are made with.
constexpr double meanWidths[][2] = {{0.4895, 0.5386}, {0.4593, 0.4893}, {0.6, 0.6}};
/// The same of all letters, by which records count that set a width.
constexpr double nominalWidths[] = {0.441, 0.401, 0.6};

int styleOf(const GdiFont& font) {
    return (font.isBold ? 1 : 0) + (font.isItalic ? 2 : 0);
}

/// A file in memory for as long as it lives.
class MappedFile {
public:
    explicit MappedFile(const std::string& path) {
        const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        struct stat status = {};
        if (!file.isOpen() || ::fstat(file.number(), &status) != 0 || status.st_size <= 0)
            return;
        void* data = ::mmap(nullptr, std::size_t(status.st_size), PROT_READ, MAP_PRIVATE, file.number(), 0);
        if (data == MAP_FAILED)
            return;
        m_data = data;
        m_size = std::size_t(status.st_size);
    }
    ~MappedFile() {
        if (m_data)
            ::munmap(m_data, m_size);
    }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    const FT_Byte* data() const { return static_cast<const FT_Byte*>(m_data); }
    FT_Long size() const { return FT_Long(m_size); }

private:
    void* m_data = nullptr;
    std::size_t m_size = 0;
};

struct FontFile {
    std::string path;
    int index = 0;
};

/// What the system takes for a pattern, which is used up; an empty path when it has no fonts.
FontFile matching(FcConfig* config, FcPattern* wanted) {
    FcPatternAddBool(wanted, FC_SCALABLE, FcTrue);
    FcConfigSubstitute(config, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result = FcResultNoMatch;
    FcPattern* found = FcFontMatch(config, wanted, &result);
    FontFile file;
    FcChar8* path = nullptr;
    if (found && FcPatternGetString(found, FC_FILE, 0, &path) == FcResultMatch) {
        file.path = reinterpret_cast<const char*>(path);
        FcPatternGetInteger(found, FC_INDEX, 0, &file.index);
    }
    if (found)
        FcPatternDestroy(found);
    FcPatternDestroy(wanted);
    return file;
}

FontFile findFont(FcConfig* config, std::size_t family, int style) {
    FcPattern* wanted = FcPatternCreate();
    for (const char* name : families[family])
        FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>(name));
    FcPatternAddInteger(wanted, FC_WEIGHT, style & 1 ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted, FC_SLANT, style & 2 ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    return matching(config, wanted);
}

/// One that has the character.
FontFile findFontWith(FcConfig* config, char32_t character) {
    FcCharSet* characters = FcCharSetCreate();
    FcCharSetAddChar(characters, character);
    FcPattern* wanted = FcPatternCreate();
    FcPatternAddString(wanted, FC_FAMILY, reinterpret_cast<const FcChar8*>("sans-serif"));
    FcPatternAddCharSet(wanted, FC_CHARSET, characters);
    FcCharSetDestroy(characters);
    return matching(config, wanted);
}

/// Collects an outline in units of the em.
struct OutlinePen {
    QPainterPath path;
    double unit = 1;

    QPointF point(const FT_Vector* at) const { return {double(at->x) / unit, -double(at->y) / unit}; }
    static OutlinePen& of(void* self) { return *static_cast<OutlinePen*>(self); }
    static int move(const FT_Vector* to, void* self) {
        of(self).path.closeSubpath();
        of(self).path.moveTo(of(self).point(to));
        return 0;
    }
    static int line(const FT_Vector* to, void* self) {
        of(self).path.lineTo(of(self).point(to));
        return 0;
    }
    static int conic(const FT_Vector* control, const FT_Vector* to, void* self) {
        of(self).path.quadTo(of(self).point(control), of(self).point(to));
        return 0;
    }
    static int cubic(const FT_Vector* one, const FT_Vector* two, const FT_Vector* to, void* self) {
        of(self).path.cubicTo(of(self).point(one), of(self).point(two), of(self).point(to));
        return 0;
    }
};

Glyph loadGlyph(FT_Face face, FT_UInt number) {
    Glyph glyph;
    if (FT_Load_Glyph(face, number, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0)
        return glyph;
    glyph.advance = double(face->glyph->metrics.horiAdvance) / face->units_per_EM;
    OutlinePen pen{{}, double(face->units_per_EM)};
    const FT_Outline_Funcs steps = {
        OutlinePen::move, OutlinePen::line, OutlinePen::conic, OutlinePen::cubic, 0, 0};
    if (face->glyph->format == FT_GLYPH_FORMAT_OUTLINE)
        FT_Outline_Decompose(&face->glyph->outline, &steps, &pen);
    pen.path.closeSubpath();
    pen.path.setFillRule(Qt::WindingFill);
    glyph.outline = pen.path;
    return glyph;
}

double meanWidthOfLetters(FT_Face face) {
    double sum = 0;
    for (char32_t letter = U'a'; letter <= U'z'; ++letter)
        sum += loadGlyph(face, FT_Get_Char_Index(face, letter)).advance;
    return sum / ('z' - 'a' + 1);
}

/// A font of the shelf; glyphs of a substitute are made as wide as those of the font that it stands for.
struct Face {
    FT_Face face = nullptr;
    double stretch = 1;
};

Glyph stretched(Glyph glyph, double stretch) {
    return {QTransform::fromScale(stretch, 1).map(glyph.outline), glyph.advance * stretch};
}

} // namespace

struct FontShelf::State {
    FT_Library library = nullptr;
    std::map<std::string, MappedFile> files;
    std::array<std::array<Face, styles>, families.size()> faces = {};
    std::vector<Face> others; ///< for characters that those don't have

    const Face& face(const GdiFont& font) const {
        return faces[std::size_t(font.kind)][std::size_t(styleOf(font))];
    }

    FT_Face open(const FontFile& file) {
        const auto& mapped = files.try_emplace(file.path, file.path).first->second;
        FT_Face face = nullptr;
        const bool isOpen =
            mapped.data() &&
            FT_New_Memory_Face(library, mapped.data(), mapped.size(), file.index, &face) == 0 &&
            face->units_per_EM > 0;
        return isOpen ? face : nullptr;
    }

    void put(std::size_t family, int style, const FontFile& file) {
        const FT_Face face = open(file);
        const double width = face ? meanWidthOfLetters(face) : 0;
        faces[family][std::size_t(style)] = {face, width > 0 ? meanWidths[family][style & 1] / width : 1};
    }
};

FontShelf::FontShelf() : m_state(std::make_unique<State>()) {
    if (FT_Init_FreeType(&m_state->library) != 0)
        return;
    FcConfig* config = FcInitLoadConfigAndFonts();
    for (std::size_t family = 0; config && family < families.size(); ++family)
        for (int style = 0; style < styles; ++style)
            m_state->put(family, style, findFont(config, family, style));
    constexpr char32_t forAll = U'\u2200', one = U'\u4E00'; // of mathematics, of Chinese and Japanese
    for (const char32_t character : {forAll, one})
        if (config)
            m_state->others.push_back({m_state->open(findFontWith(config, character))});
    if (config)
        FcConfigDestroy(config);
}

FontShelf::~FontShelf() {
    if (m_state->library)
        FT_Done_FreeType(m_state->library);
}

Glyph FontShelf::glyph(const GdiFont& font, char32_t character) const {
    const Face& sans = m_state->faces[0][std::size_t(styleOf(font))];
    std::vector candidates{m_state->face(font), sans};
    candidates.insert(candidates.end(), m_state->others.begin(), m_state->others.end());
    for (const Face& candidate : candidates)
        if (const FT_UInt number = candidate.face ? FT_Get_Char_Index(candidate.face, character) : 0)
            return stretched(loadGlyph(candidate.face, number), candidate.stretch);
    return {{}, metrics(font).meanWidth};
}

Glyph FontShelf::glyphByNumber(const GdiFont& font, unsigned number) const {
    constexpr unsigned asciiOffset = 29, lastAscii = 126;
    return glyph(font, number + asciiOffset <= lastAscii ? char32_t(number + asciiOffset) : U' ');
}

FontShelf::Metrics FontShelf::metrics(const GdiFont& font) const {
    const FT_Face face = m_state->face(font).face;
    Metrics metrics{.meanWidth = nominalWidths[std::size_t(font.kind)]};
    if (!face)
        return metrics;
    const double unit = face->units_per_EM;
    metrics.ascent = face->ascender / unit;
    metrics.descent = -face->descender / unit;
    return metrics;
}

} // namespace tarsel::decoder
