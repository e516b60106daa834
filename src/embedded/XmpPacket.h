// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace tarsel {

/// Namespaces of XMP.
namespace xmpSpace {
constexpr std::string_view dublinCore = "http://purl.org/dc/elements/1.1/";
constexpr std::string_view photoshop = "http://ns.adobe.com/photoshop/1.0/";
constexpr std::string_view iptcCore = "http://iptc.org/std/Iptc4xmpCore/1.0/xmlns/";
constexpr std::string_view tiff = "http://ns.adobe.com/tiff/1.0/";
constexpr std::string_view exif = "http://ns.adobe.com/exif/1.0/";
constexpr std::string_view exifEx = "http://cipa.jp/exif/1.0/";
constexpr std::string_view note = "http://ns.adobe.com/xmp/note/";
constexpr std::string_view basic = "http://ns.adobe.com/xap/1.0/";
} // namespace xmpSpace

struct XmpName {
    std::string_view space;
    std::string_view name;
};

/// An XMP packet whose properties are changed by patching its text: all else stays byte for byte, and the
/// padding at its end takes up the difference in size as far as it goes.
///
/// Known are properties of the resource itself, not fields of structures: as an attribute of
/// rdf:Description, as an element with a text, as rdf:Alt, of which the item "x-default" or else the first
/// counts, and as rdf:Seq or rdf:Bag.
class XmpPacket {
public:
    /// Nothing for a packet that isn't well-formed XML in UTF-8, has a document type, or a tag of thousands
    /// of attributes.
    static std::optional<XmpPacket> read(const QByteArray& bytes);

    QByteArray bytes() const;

    bool states(const XmpName& name) const;
    QStringList texts(const XmpName& name) const; ///< as first stated; empty when it isn't

    /// Replaces the value wherever the packet states the property, in the form that it has there: the items
    /// of a list, else one text with ", " between. False, and nothing changed, for another form, such as a
    /// structure.
    bool set(const XmpName& name, const QStringList& texts);
    void remove(const XmpName& name); ///< in any form and all languages

    /// Elements and attributes of these local names, also inside structures. False when it didn't go well.
    bool removeEverywhere(const std::function<bool(const QString& name)>& isUnwanted);

private:
    struct Range {
        qsizetype start = 0;
        qsizetype end = 0;
    };
    enum class Form { Attribute, Text, Alternatives, List, Unknown };
    struct Statement {
        QString space;
        QString name;
        Form form = Form::Text;
        Range all;       ///< of the element or attribute
        Range value;     ///< what a new value replaces; after an empty-element tag when it has no end tag
        QString element; ///< qualified name of the element around the value
        QString item;    ///< of the items of a list
        QStringList texts;
    };
    class Reader;

    bool parse();
    bool is(const Statement& statement, const XmpName& name) const;
    QString valueText(const Statement& statement, const QStringList& texts) const;
    void replaceValue(const Statement& statement, const QString& value);

    QByteArray m_old;
    QString m_text;
    QByteArray m_tail; ///< zeros after the end
    std::vector<Statement> m_statements;
};

} // namespace tarsel
