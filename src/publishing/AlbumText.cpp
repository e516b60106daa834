// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumText.h"

#include "base/CodePage.h"
#include "base/Conversions.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <string_view>

namespace tarsel::albumText {

namespace {

#define NL "\r\n"

// The beginning that index and pages share, after their comments.
#define DOCUMENT_HEAD                                                                                        \
    NL NL "<html>" NL NL "<head>" NL "<meta http-equiv=\"Content-Type\"" NL                                  \
          "content=\"text/html; charset=windows-1250\">"
#define BODY                                                                                                 \
    NL "</head>" NL NL "<body {bodyBackground} link={linkColor} bgcolor={pageColor}>" NL                     \
       "<div align=\"center\"><center>"
#define NAVIGATION(align, link)                                                                              \
    "<td width=20% height=19 align=" align "><b><font face='{font}' color={fontColor} size=4>{" link         \
    "}</b></font></td>"
#define METADATA(size)                                                                                       \
    NL "<tr><td width=100%><p align=left><font size=" size " color={metadataColor} face='{font}'>"

struct Fragments {
    Part part;
    std::string_view text;
};

constexpr std::array fragments{
    Fragments{Part::IndexHead,
              "<!-- Album Generated with Tarsel WebAlbum Plugin -->" //
              DOCUMENT_HEAD                                          //
                  NL "<title>{title}: Web Album</title>"             //
              BODY                                                   //
                  NL
              "<p align=center><font size=5 face= '{font}' color={fontColor}><b>{title}</b></font></p>" //
              NL "<table border= {tableBorder} cellpadding=\"4\" cellspacing=\"4\" "
              "bordercolor={cellBorderColor} > " //
              NL "<tr>" NL},
    Fragments{Part::Cell, "<td align=\"center\" valign=\"bottom\"{cellBackground} > "
                          "<a href=\"{page}\"><img border={border} src=\"{folder}\\{thumbnail}\"></a><br>"
                          "<br>{caption}<br></td>{rowEnd}" NL},
    Fragments{Part::RowEnd, NL "</tr>" NL "<tr>" NL},
    Fragments{Part::IndexEnd, NL "</tr>" NL "</table>" NL "</center></div>" NL "</body>" NL "</html>"},
    Fragments{Part::PageHead,
              "<!-- Album Generated with Tarsel WebAlbum plugin -->"                                  //
              DOCUMENT_HEAD                                                                           //
                  NL "<title>{title}</title>"                                                         //
              BODY                                                                                    //
                  NL "<table border=0>"                                                               //
              NL "<tr><td align=center>"                                                              //
              NL "<img border={border} src='{folder}\\{picture}'>"                                    //
              NL "<p align=center>{caption}</p></td></tr></table></center></div>"                     //
              NL "<div align=center><center><table border=0 width=50% height=25>"                     //
              NL "<tr>" NAVIGATION("right", "first") "</center>"                                      //
              NL NAVIGATION("left", "previous")                                                       //
              NL NAVIGATION("center", "home")                                                         //
              NL NAVIGATION("right", "next")                                                          //
              NL NAVIGATION("left", "last") "</tr></table></font></b></div>"                          //
              NL "<p align=center>&nbsp;</p><div align=center><center><table border=0 width=80%><tr>" //
              NL "<td width=100%><div align=center><center><table border=0 width=95% "
                                            "bordercolor={cellBorderColor}>" //
              NL "<tr><td width=100%><b><font size=4 color={fontColor} face='{font}'>"
                                            "Picture Description:</font></b></td></tr>"},
    Fragments{Part::Caption,
              "<font face= '{font}' size={fontSize} color={fontColor}><b>{name}</b><br>{size}</font>"},
    Fragments{Part::Link, "<a href='{page}'><img border=0 src='{folder}\\{image}'> </a>"},
    Fragments{Part::Description,
              NL "<tr><td width=100%><p align=justify><font size=2 color={fontColor} face='{font}'>"
                 "{description}</font></td></tr>"},
    Fragments{Part::ExifHeading, METADATA("3") "<br><b>EXIF Metadata</b></font></td></tr>"},
    Fragments{Part::IptcHeading, METADATA("3") "<br><b>IPTC Metadata</font></td></tr>"},
    Fragments{Part::MetadataLine, METADATA("2") "<b>{label}</b> - {value}</font></td></tr>"},
    Fragments{Part::PageEnd, NL "</table></center></div></td></tr></table></center></div></font>" //
              NL "</body></html>"},
};

#undef METADATA
#undef NAVIGATION
#undef BODY
#undef DOCUMENT_HEAD
#undef NL

std::string_view fragmentOf(Part part) {
    for (const Fragments& each : fragments)
        if (each.part == part)
            return each.text;
    return {};
}

/// Characters beyond ASCII that have the same byte in windows-1252, which is written, and in windows-1250,
/// which the pages say.
bool isSameInBothPages(QChar character) {
    static const QString same =
        QStringLiteral(u"€‚„…†‡‰Š‹Ž‘’“”•–—™š›ž\u00A0¤¦§¨©«¬\u00AD®°±´µ¶·¸»ÁÂÄÇÉËÍÎÓÔÖ×ÚÜÝßáâäçéëíîóôö÷úüý");
    return same.contains(character);
}

bool isPlain(QChar character, const char* special) {
    const char16_t code = character.unicode();
    if (code >= 0x80)
        return isSameInBothPages(character);
    return code >= ' ' && code != 0x7F &&
           std::string_view(special).find(char(code)) == std::string_view::npos;
}

QByteArray pageByte(QChar character) {
    return codePage::encode(QString(character)); // alone, since some pairs of bytes would read as UTF-8
}

QByteArray percentEncoded(const QString& characters) {
    QByteArray encoded;
    for (const char byte : QFile::encodeName(characters))
        encoded += '%' + QByteArray(1, byte).toHex().toUpper();
    return encoded;
}

/// A character of one or two units.
QString characterAt(const QString& value, qsizetype at) {
    const bool isPair = value[at].isHighSurrogate() && at + 1 < value.size();
    return value.mid(at, isPair ? 2 : 1);
}

} // namespace

QByteArray filled(Part part, const Values& values) {
    const std::string_view fragment = fragmentOf(part);
    QByteArray result;
    for (std::size_t at = 0; at < fragment.size();) {
        const std::size_t open = std::min(fragment.find('{', at), fragment.size());
        result.append(fragment.data() + at, qsizetype(open - at));
        if (open == fragment.size())
            break;
        const std::size_t close = fragment.find('}', open);
        const QByteArray name(fragment.data() + open + 1, qsizetype(close - open - 1));
        const auto value = values.find(name);
        if (value == values.end())
            qFatal("No value for {%s} of an album page", name.constData());
        result += *value;
        at = close + 1;
    }
    return result;
}

QByteArray text(const QString& value) {
    QByteArray encoded;
    for (qsizetype at = 0; at < value.size();) {
        const QString character = characterAt(value, at);
        const bool isBreak = character == u"\r" || character == u"\n" || character == u"\t";
        if (isBreak || isPlain(character[0], "&<"))
            encoded += pageByte(character[0]);
        else if (character != QChar(u'\0'))
            encoded += "&#" + QByteArray::number(character.toUcs4().constFirst()) + ';';
        at += character.size();
    }
    return encoded;
}

QByteArray quotedText(const QString& value) {
    return text(value).replace('\'', "&#39;").replace('"', "&#34;");
}

QByteArray reference(const QString& fileName) {
    QByteArray encoded;
    for (qsizetype at = 0; at < fileName.size();) {
        const QString character = characterAt(fileName, at);
        const bool isLeading = at == 0 && character == u" "; // would be stripped
        encoded += isPlain(character[0], "\"#%&'*:<>?\\`{|}") && !isLeading ? pageByte(character[0])
                                                                            : percentEncoded(character);
        at += character.size();
    }
    return encoded;
}

QByteArray fncColorToHtml(const QString& color) {
    const qint32 value = toInt32(color);
    QByteArray html = "#";
    for (const int shift : {0, 8, 16}) {
        const QByteArray channel = QByteArray::number((value >> shift) & 255, 16).toUpper();
        const bool isDecimal = std::ranges::all_of(channel, [](char digit) { return digit <= '9'; });
        html += isDecimal ? channel.rightJustified(2, '0') : channel;
    }
    return html;
}

} // namespace tarsel::albumText
