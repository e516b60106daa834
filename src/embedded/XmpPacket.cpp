// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/XmpPacket.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QXmlStreamReader>
#include <algorithm>

namespace tarsel {

namespace {

const QString rdf = QStringLiteral("http://www.w3.org/1999/02/22-rdf-syntax-ns#");
const QString xml = QStringLiteral("http://www.w3.org/XML/1998/namespace");

bool isSpace(QChar letter) {
    return letter == u' ' || letter == u'\t' || letter == u'\r' || letter == u'\n';
}

bool isAllowedInXml(QChar letter) {
    return letter.unicode() >= 0x20 ? letter.unicode() < 0xFFFE : isSpace(letter);
}

/// For an element as well as for an attribute in quotes of either kind.
QString escaped(const QString& text) {
    QString allowed = text;
    allowed.removeIf([](QChar letter) { return !isAllowedInXml(letter); });
    return allowed.toHtmlEscaped()
        .replace(u'\'', QStringLiteral("&apos;"))
        .replace(u'\r', QStringLiteral("&#xD;"));
}

/// The padding between the end of the tree and the end mark of a packet that may be changed in place.
struct Padding {
    qsizetype start = 0;
    qsizetype size = 0;
};

std::optional<Padding> paddingOf(const QByteArray& packet) {
    const qsizetype end = packet.lastIndexOf("<?xpacket end=");
    if (end < 0 || !QByteArrayView(packet).sliced(end).contains('w'))
        return std::nullopt;
    qsizetype start = end;
    while (start > 0 && isSpace(QLatin1Char(packet[start - 1])))
        --start;
    return Padding{start, end - start};
}

QByteArray ofSize(QByteArray packet, qsizetype size) {
    const std::optional<Padding> padding = paddingOf(packet);
    if (!padding)
        return packet;
    if (packet.size() > size)
        return packet.remove(padding->start, std::min(packet.size() - size, padding->size));
    return packet.insert(padding->start + padding->size, QByteArray(size - packet.size(), ' '));
}

/// The XML reader compares each attribute of a tag with all others. Real tags have some hundreds at most.
bool hasTooManyAttributes(const QByteArray& text) {
    constexpr int most = 2000;
    int count = 0;
    for (auto at = text.begin(); at != text.end(); ++at) {
        if (*at == '<')
            count = 0;
        if (*at != '=')
            continue;
        const auto next =
            std::find_if_not(at + 1, text.end(), [](char letter) { return isSpace(QLatin1Char(letter)); });
        if (next != text.end() && (*next == '"' || *next == '\'') && ++count > most)
            return true;
    }
    return false;
}

} // namespace

// --- reading -----------------------------------------------------------------------------------------------

/// Collects the statements with their places in the text.
class XmpPacket::Reader {
public:
    explicit Reader(const QString& text) : m_text(text), m_reader(text) {}

    /// Nothing when the text isn't well-formed.
    std::optional<std::vector<Statement>> read() {
        QStringList path; // elements that are open, "" for one that isn't of RDF
        while (!m_reader.atEnd() && !m_isDamaged) {
            next();
            if (m_reader.isDTD())
                return std::nullopt;
            if (m_reader.isEndElement() && !path.isEmpty())
                path.removeLast();
            if (!m_reader.isStartElement())
                continue;
            if (path.endsWith(QStringLiteral("Description")) &&
                path.value(path.size() - 2) == QLatin1String("RDF")) {
                readProperty();
                continue;
            }
            path << (m_reader.namespaceUri() == rdf ? m_reader.name().toString() : QString());
            if (path.last() == QLatin1String("Description") &&
                path.value(path.size() - 2) == QLatin1String("RDF"))
                readAttributes();
        }
        return m_reader.hasError() || m_isDamaged ? std::nullopt : std::optional(m_statements);
    }

    /// Of elements and attributes with these names; one inside another isn't listed.
    std::vector<Range> placesOf(const std::function<bool(const QString& name)>& isWanted) {
        std::vector<Range> places;
        int depth = 0, wantedDepth = 0; // of the element that is being passed; 0 for none
        while (!m_reader.atEnd()) {
            next();
            if (m_reader.isStartElement())
                ++depth;
            if (m_reader.isStartElement() && wantedDepth == 0 && isWanted(m_reader.name().toString())) {
                wantedDepth = depth;
                places.push_back(m_token);
            } else if (m_reader.isStartElement() && wantedDepth == 0) {
                for (const Attribute& each : attributes())
                    if (isWanted(each.attribute.name().toString()))
                        places.push_back(each.all);
            }
            if (m_reader.isEndElement() && depth-- == wantedDepth) {
                wantedDepth = 0;
                places.back().end = m_token.end;
            }
        }
        return places;
    }

private:
    /// Only where a tag ends is known for certain; in it, a "<" can't stand but at its start. An
    /// empty-element tag is reported twice, the second time as an end tag without a length.
    void next() {
        const qsizetype before = m_token.end;
        m_reader.readNext();
        m_token.end = m_reader.characterOffset();
        const bool isTag = m_reader.isStartElement() || m_reader.isEndElement();
        if (!isTag || m_token.end == before)
            m_token.start = m_token.end;
        else
            m_token.start = m_text.lastIndexOf(u'<', m_token.end - 1);
        m_isDamaged = m_isDamaged || (isTag && m_text.mid(m_token.end - 1, 1) != u">") || m_token.start < 0;
    }

    bool isRdf(const char* name) const {
        return m_reader.namespaceUri() == rdf && m_reader.name() == QLatin1String(name);
    }

    static Statement named(const QString& space, const QString& name, Form form) {
        Statement statement;
        statement.space = space;
        statement.name = name;
        statement.form = form;
        return statement;
    }

    struct Attribute {
        QXmlStreamAttribute attribute;
        Range all;   ///< with the space before it
        Range value; ///< between the quotes
    };

    /// Those of the start tag that was read last, without declarations of namespaces.
    std::vector<Attribute> attributes() const {
        static const QRegularExpression form(
            QStringLiteral(R"re(\s+([^\s=<]+)\s*=\s*(?:"([^"]*)"|'([^']*)'))re"));
        const QString tag = m_text.mid(m_token.start, m_token.end - m_token.start);
        const QXmlStreamAttributes known = m_reader.attributes(); // in the order of the text
        std::vector<Attribute> attributes;
        auto each = known.begin();
        for (auto matches = form.globalMatch(tag); matches.hasNext() && each != known.end();) {
            const QRegularExpressionMatch match = matches.next();
            if (match.capturedView(1) != each->qualifiedName())
                continue;
            const int group = match.capturedStart(2) >= 0 ? 2 : 3;
            attributes.push_back(
                {*each++,
                 {m_token.start + match.capturedStart(), m_token.start + match.capturedEnd()},
                 {m_token.start + match.capturedStart(group), m_token.start + match.capturedEnd(group)}});
        }
        return attributes;
    }

    /// Properties as attributes of rdf:Description.
    void readAttributes() {
        for (const Attribute& each : attributes()) {
            const QXmlStreamAttribute& attribute = each.attribute;
            if (attribute.namespaceUri() == rdf || attribute.namespaceUri() == xml)
                continue;
            Statement statement =
                named(attribute.namespaceUri().toString(), attribute.name().toString(), Form::Attribute);
            statement.all = each.all;
            statement.value = each.value;
            statement.texts = {attribute.value().toString()};
            m_statements.push_back(std::move(statement));
        }
    }

    /// From the start tag to the end of a property's element.
    void readProperty() {
        Statement statement =
            named(m_reader.namespaceUri().toString(), m_reader.name().toString(), Form::Text);
        statement.element = m_reader.qualifiedName().toString();
        for (const QXmlStreamAttribute& attribute : m_reader.attributes())
            if (attribute.namespaceUri() != xml)
                statement.form = Form::Unknown;
        statement.all.start = m_token.start;
        Range value{m_token.end, m_token.end};
        QString text;
        for (next(); !m_reader.atEnd() && !m_reader.isEndElement(); next()) {
            if (m_reader.isCharacters())
                text += m_reader.text();
            if (!m_reader.isStartElement())
                continue;
            const bool isOnly = statement.form == Form::Text && text.trimmed().isEmpty();
            if (isOnly && isRdf("Alt"))
                readItems(statement, Form::Alternatives);
            else if (isOnly && (isRdf("Seq") || isRdf("Bag")))
                readItems(statement, Form::List);
            else
                skip(statement);
        }
        value.end = m_token.start;
        statement.all.end = m_token.end;
        if (statement.form == Form::Text) {
            statement.value = value;
            statement.texts = {text};
        }
        m_statements.push_back(std::move(statement));
    }

    void skip(Statement& statement) {
        statement.form = Form::Unknown;
        for (int depth = 1; depth > 0 && !m_reader.atEnd();) {
            next();
            depth += m_reader.isStartElement() ? 1 : m_reader.isEndElement() ? -1 : 0;
        }
    }

    void readItems(Statement& statement, Form form) {
        statement.form = form;
        const QString list = m_reader.qualifiedName().toString();
        statement.item = list.left(list.indexOf(u':') + 1) + QStringLiteral("li");
        const Range start = m_token;
        bool hasDefault = false;
        for (next(); !m_reader.atEnd() && !m_reader.isEndElement(); next()) {
            if (!m_reader.isStartElement())
                continue;
            const bool isDefault = m_reader.attributes().value(xml, QStringLiteral("lang")) == u"x-default";
            const QString element = m_reader.qualifiedName().toString();
            const Statement item = readItem(statement);
            if (form == Form::List)
                statement.texts += item.texts;
            else if (statement.texts.isEmpty() || (isDefault && !hasDefault)) {
                statement.texts = item.texts;
                statement.value = item.value;
                statement.element = element;
            }
            hasDefault = hasDefault || isDefault;
        }
        if (form == Form::Alternatives && !statement.texts.isEmpty())
            return;
        statement.value = {start.end, m_token.start};
        statement.element = list;
    }

    Statement readItem(Statement& list) {
        Statement item;
        item.value = {m_token.end, m_token.end};
        QString text;
        for (next(); !m_reader.atEnd() && !m_reader.isEndElement(); next()) {
            if (m_reader.isCharacters())
                text += m_reader.text();
            if (m_reader.isStartElement())
                skip(list);
        }
        item.value.end = m_token.start;
        item.texts = {text};
        return item;
    }

    const QString& m_text;
    QXmlStreamReader m_reader;
    Range m_token;
    bool m_isDamaged = false;
    std::vector<Statement> m_statements;
};

std::optional<XmpPacket> XmpPacket::read(const QByteArray& bytes) {
    if (hasTooManyAttributes(bytes))
        return std::nullopt;
    XmpPacket packet;
    packet.m_old = bytes;
    qsizetype end = bytes.size();
    while (end > 0 && bytes[end - 1] == '\0')
        --end;
    packet.m_tail = bytes.mid(end);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    packet.m_text = decoder(bytes.left(end));
    if (packet.bytes() != bytes || !packet.parse()) // such as one with a byte order mark before it
        return std::nullopt;
    return packet;
}

bool XmpPacket::parse() {
    std::optional<std::vector<Statement>> found = Reader(m_text).read();
    if (found)
        m_statements = std::move(*found);
    return found.has_value();
}

bool XmpPacket::is(const Statement& statement, const XmpName& name) const {
    return statement.name == QLatin1String(name.name.data(), qsizetype(name.name.size())) &&
           statement.space == QLatin1String(name.space.data(), qsizetype(name.space.size()));
}

bool XmpPacket::states(const XmpName& name) const {
    return std::ranges::any_of(m_statements, [&](const Statement& each) { return is(each, name); });
}

QStringList XmpPacket::texts(const XmpName& name) const {
    const auto found =
        std::ranges::find_if(m_statements, [&](const Statement& each) { return is(each, name); });
    return found == m_statements.end() ? QStringList() : found->texts;
}

// --- changing ----------------------------------------------------------------------------------------------

bool XmpPacket::set(const XmpName& name, const QStringList& texts) {
    const auto isOther = [&](const Statement& each) { return is(each, name) && each.form == Form::Unknown; };
    if (std::ranges::any_of(m_statements, isOther))
        return false;
    // From the last to the first: places before a change stay right.
    for (auto statement = m_statements.rbegin(); statement != m_statements.rend(); ++statement) {
        const QStringList wanted =
            statement->form == Form::List ? texts : QStringList(texts.join(QStringLiteral(", ")));
        if (is(*statement, name) && statement->texts != wanted)
            replaceValue(*statement, valueText(*statement, wanted));
    }
    return parse();
}

QString XmpPacket::valueText(const Statement& statement, const QStringList& texts) const {
    QString first = escaped(texts.value(0));
    if (statement.form == Form::Attribute)
        return first.replace(u'\n', QStringLiteral("&#xA;")).replace(u'\t', QStringLiteral("&#x9;"));
    if (statement.form == Form::Text)
        return first;
    if (statement.form == Form::Alternatives) {
        const bool hasItem = statement.element == statement.item;
        return hasItem ? first
                       : QStringLiteral("<%1 xml:lang=\"x-default\">").arg(statement.item) + first +
                             QStringLiteral("</%1>").arg(statement.item);
    }
    const QString old = m_text.mid(statement.value.start, statement.value.end - statement.value.start);
    const auto firstLetter = std::ranges::find_if_not(old, isSpace);
    const QString before = old.left(firstLetter - old.begin());
    const QString after = old.mid(std::max(before.size(), old.lastIndexOf(u'>') + 1));
    QString items;
    for (const QString& text : texts)
        items += before + QStringLiteral("<%1>").arg(statement.item) + escaped(text) +
                 QStringLiteral("</%1>").arg(statement.item);
    return items + after;
}

void XmpPacket::replaceValue(const Statement& statement, const QString& value) {
    const Range& range = statement.value;
    const bool hasEndTag = statement.form == Form::Attribute || m_text.mid(range.start - 2, 2) != u"/>";
    if (hasEndTag)
        m_text.replace(range.start, range.end - range.start, value);
    else
        m_text.replace(range.start - 2, 2,
                       QLatin1Char('>') + value + QStringLiteral("</%1>").arg(statement.element));
}

void XmpPacket::remove(const XmpName& name) {
    for (auto statement = m_statements.rbegin(); statement != m_statements.rend(); ++statement) {
        if (!is(*statement, name))
            continue;
        qsizetype start = statement->all.start;
        while (statement->form != Form::Attribute && start > 0 && isSpace(m_text[start - 1]))
            --start;
        m_text.remove(start, statement->all.end - start);
    }
    parse();
}

bool XmpPacket::removeEverywhere(const std::function<bool(const QString& name)>& isUnwanted) {
    QString kept;
    qsizetype from = 0;
    for (const Range& place : Reader(m_text).placesOf(isUnwanted)) {
        if (place.start < from)
            return false;
        kept += QStringView(m_text).sliced(from, place.start - from);
        from = place.end;
    }
    kept += QStringView(m_text).sliced(from);
    m_text = kept;
    return parse();
}

QByteArray XmpPacket::bytes() const {
    return ofSize(m_text.toUtf8(), m_old.size() - m_tail.size()) + m_tail;
}

} // namespace tarsel
