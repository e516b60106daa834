// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTranslator>
#include <set>
#include <string>

namespace tarsel::test {

/// The folder of the built translations; without Qt's lrelease it is empty.
QString translationsFolder();

/// Texts of a translation for as long as it lives, which notes each of ours that has none.
class NotedLanguage : public QTranslator {
public:
    explicit NotedLanguage(const char* language);
    ~NotedLanguage() override;
    bool isBuilt() const { return m_isBuilt; }
    std::string missing() const;

    QString translate(const char* context, const char* text, const char* disambiguation,
                      int count) const override;

private:
    bool m_isBuilt;
    mutable std::set<std::string> m_missing;
};

/// A language of texts that are 40 percent longer than the English ones and stand between angle quotes, for
/// as long as it lives: what is shown without them, or in a file with them, is wrong.
class LongLanguage : public QTranslator {
public:
    LongLanguage();
    ~LongLanguage() override;
    static constexpr char16_t first = u'«', last = u'»';

    QString translate(const char* context, const char* text, const char* disambiguation,
                      int count) const override;
    bool isEmpty() const override { return false; }
};

} // namespace tarsel::test
