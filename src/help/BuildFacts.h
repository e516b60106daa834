// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

namespace tarsel {

/// A library or font that the program is made of.
struct PartFacts {
    QString name;
    QString version;     ///< empty where nobody knows it
    bool isInUse = true; ///< the version is that of the library in use; else of the one at the build
    QString licence;     ///< SPDX expression
    QString purpose;
};

/// Everything of others that the program uses, by the weight that it has for users.
std::vector<PartFacts> programParts();

/// Name and value, such as "Qt" and "6.4.2".
struct BuildFact {
    QString name, value;
};

/// What the program was made from and by, and the system that it runs on.
std::vector<BuildFact> buildFacts();

/// Both tables as text, for reports of errors: in English, since developers read it.
QString buildReport();

} // namespace tarsel
