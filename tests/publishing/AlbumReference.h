// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tarsel::test {

/// Every line after the first begins with a line break.
class Lines {
public:
    explicit Lines(std::string first) : m_text(std::move(first)) {}
    Lines& operator<<(const std::string& line) {
        m_text += "\r\n" + line;
        return *this;
    }
    const std::string& text() const { return m_text; }

private:
    std::string m_text;
};

/// A row of an album as its pages show it; all texts as they stand there.
struct ReferenceRow {
    std::string name;
    std::string size;
    std::string description;
    std::string metadata; ///< its lines, complete
    bool hasPicture = true;
};

/// What an album of plain names looks like, put together line by line without the generator's table.
struct AlbumReference {
    std::string title = "My Album", font = "Sans", fontSize = "3", fontColor = "#000000";
    std::string body = "background='MyImages_My Album\\violet.gif'",
                bodyColors = " link=#000000 bgcolor=#E0000";
    std::string border = "1", tableBorder = "1", tableColor = "#000000";
    std::string cell = "background='MyImages_My Album\\blue_cell.gif'";
    int perRow = 5;
    bool names = true, sizes = true;

    std::string index(const std::vector<ReferenceRow>& rows) const {
        Lines lines(head("Plugin", title + ": Web Album"));
        lines << "<p align=center><font size=5 face= '" + font + "' color=" + fontColor + "><b>" + title +
                     "</b></font></p>"
              << "<table border= " + tableBorder +
                     " cellpadding=\"4\" cellspacing=\"4\" bordercolor=" + tableColor + " > "
              << "<tr>"
              << "";
        std::string text = lines.text();
        int inRow = 0;
        for (const ReferenceRow& row : rows) {
            text += "<td align=\"center\" valign=\"bottom\"" + cell + " > <a href=\"" + pageName(row) +
                    "\"><img border=" + border + " src=\"MyImages_" + title + "\\" +
                    (row.hasPicture ? row.name + "_thumb.jpg" : "") + "\"></a><br><br>" + caption(row) +
                    "<br></td>";
            if (++inRow == perRow) {
                text += "\r\n</tr>\r\n<tr>\r\n";
                inRow = 0;
            }
            text += "\r\n";
        }
        return text + "\r\n</tr>\r\n</table>\r\n</center></div>\r\n</body>\r\n</html>\r\n";
    }
    std::string page(const std::vector<ReferenceRow>& rows, std::size_t number) const {
        const ReferenceRow& row = rows[number];
        const auto link = [&](const std::string& to, const char* image) {
            return "<a href='" + to + "'><img border=0 src='MyImages_" + title + "\\" + image + ".gif'> </a>";
        };
        const std::string font4 = "><b><font face='" + font + "' color=" + fontColor + " size=4>";
        const auto place = [&](const char* align, const std::string& content) {
            return std::string("<td width=20% height=19 align=") + align + font4 + content +
                   "</b></font></td>";
        };
        const bool isFirst = number == 0, isLast = number + 1 == rows.size();
        Lines lines(head("plugin", title));
        lines << "<table border=0>"
              << "<tr><td align=center>"
              << "<img border=" + border + " src='MyImages_" + title + "\\" + row.name + ".jpg'>"
              << "<p align=center>" + caption(row) + "</p></td></tr></table></center></div>"
              << "<div align=center><center><table border=0 width=50% height=25>"
              << "<tr>" + place("right", isFirst ? "" : link(pageName(rows.front()), "first")) + "</center>"
              << place("left", isFirst ? "" : link(pageName(rows[number - 1]), "previous"))
              << place("center", link("index.htm", "home"))
              << place("right", isLast ? "" : link(pageName(rows[number + 1]), "next"))
              << place("left", isLast ? "" : link(pageName(rows.back()), "last")) +
                     "</tr></table></font></b></div>"
              << "<p align=center>&nbsp;</p><div align=center><center><table border=0 width=80%><tr>"
              << "<td width=100%><div align=center><center><table border=0 width=95% bordercolor=" +
                     tableColor + ">"
              << "<tr><td width=100%><b><font size=4 color=" + fontColor + " face='" + font +
                     "'>Picture Description:</font></b></td></tr>";
        if (!row.description.empty())
            lines << "<tr><td width=100%><p align=justify><font size=2 color=" + fontColor + " face='" +
                         font + "'>" + row.description + "</font></td></tr>";
        std::string text = lines.text() + row.metadata;
        return text +
               "\r\n</table></center></div></td></tr></table></center></div></font>\r\n</body></html>\r\n";
    }

private:
    std::string head(const std::string& plugin, const std::string& shownTitle) const {
        Lines lines("<!-- Album Generated with Tarsel WebAlbum " + plugin + " -->");
        lines << ""
              << "<html>"
              << ""
              << "<head>"
              << "<meta http-equiv=\"Content-Type\""
              << "content=\"text/html; charset=windows-1250\">"
              << "<title>" + shownTitle + "</title>"
              << "</head>"
              << ""
              << "<body " + body + bodyColors + ">"
              << "<div align=\"center\"><center>";
        return lines.text();
    }
    std::string caption(const ReferenceRow& row) const {
        return "<font face= '" + font + "' size=" + fontSize + " color=" + fontColor + "><b>" +
               (names ? row.name : "") + "</b><br>" + (sizes ? row.size : "") + "</font>";
    }
    std::string pageName(const ReferenceRow& row) const { return title + "_" + row.name + ".html"; }
};

} // namespace tarsel::test
