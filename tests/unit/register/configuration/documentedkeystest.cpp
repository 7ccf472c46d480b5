// SPDX-License-Identifier: MIT
// Holds docs/configuration.md and the lists of known keys against each other.
#include "configurationkeys.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

struct DocumentedKey {
    QString defaultValue; ///< as written; empty: none, or described in words
    bool isSecret = false;
};

void PrintTo(const DocumentedKey& key, std::ostream* out)
{
    *out << (key.isSecret ? "secret " : "") << key.defaultValue.toStdString();
}

bool operator==(const DocumentedKey& left, const DocumentedKey& right)
{
    return left.defaultValue == right.defaultValue && left.isSecret == right.isSecret;
}

using DocumentedKeys = QMap<QString, DocumentedKey>;

/// A cell that holds nothing but one text in backticks, as that text; any other cell as nothing.
QString literal(const QString& cell)
{
    static const QRegularExpression form(u"^`([^`]*)`$"_s);
    return form.match(cell.trimmed()).captured(1);
}

void read(const QString& row, DocumentedKeys& keys)
{
    static const QRegularExpression key(u"`([\\w.<>]+:\\w+)`"_s);
    const QStringList cells = row.split(u'|');
    if (cells.size() < 4) {
        return;
    }
    const DocumentedKey documented{literal(cells[2]), cells[3].trimmed().startsWith("a secret"_L1)};
    for (const QRegularExpressionMatch& match : key.globalMatch(cells[1])) {
        keys.insert(match.captured(1).replace("<name>"_L1, "*"_L1), documented);
    }
}

/// The rows of the tables under "All keys".
DocumentedKeys documentedKeys()
{
    QFile file(QString::fromUtf8(CONFIGURATION_DOCUMENT));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    DocumentedKeys keys;
    bool isWanted = false;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.startsWith("## "_L1)) {
            isWanted = line == "## All keys"_L1;
        }
        if (isWanted) {
            read(line, keys);
        }
    }
    return keys;
}

DocumentedKeys knownKeys()
{
    ConfigurationKeys keys;
    EXPECT_TRUE(keys.load(QString::fromUtf8(PLUGIN_KEYS)));
    EXPECT_TRUE(keys.load(QString::fromUtf8(RECOVERY_KEYS)));
    DocumentedKeys known;
    for (const ConfigurationKey& key : keys.all()) {
        known.insert(key.key, {key.defaultValue, key.isSecret});
    }
    EXPECT_EQ(known.size(), keys.all().size()) << "a key is there twice";
    return known;
}

} // namespace

TEST(DocumentedKeys, everyKnownKeyIsDocumentedAndEveryDocumentedOneIsKnown)
{
    const DocumentedKeys documented = documentedKeys();
    const DocumentedKeys known = knownKeys();
    EXPECT_GT(documented.size(), 40);
    EXPECT_EQ(documented.keys(), known.keys());
    for (auto key = known.cbegin(); key != known.cend(); ++key) {
        EXPECT_EQ(documented.value(key.key()), key.value()) << qPrintable(key.key());
    }
}
