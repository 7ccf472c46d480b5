// SPDX-License-Identifier: MIT
#include "table.h"

#include "database.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using emulator::Column;
using emulator::Database;
using emulator::Table;

namespace
{
struct Name {
    QString family;
};

/// A record with a member of every type that a column can have.
struct Visitor {
    QString id;
    Name name;
    QStringList remarks;
    QByteArray picture;
    QDate since;
    bool isExpected = false;
    double height = 0;
    std::optional<double> weight;
    QString colour; ///< came with version 2 of the schema
    QString shoes;  ///< came with version 3
};

const Table<Visitor> visitors{
    u"visitor"_s,
    {
        Column<Visitor>::of<&Visitor::id>(u"id"_s, u"TEXT NOT NULL UNIQUE"_s),
        Column<Visitor>::of<&Visitor::name, &Name::family>(u"family"_s, u"TEXT NOT NULL"_s),
        Column<Visitor>::of<&Visitor::remarks>(u"remarks"_s, u"TEXT NOT NULL"_s),
        Column<Visitor>::of<&Visitor::picture>(u"picture"_s, u"TEXT NOT NULL"_s),
        Column<Visitor>::of<&Visitor::since>(u"since"_s, u"TEXT NOT NULL"_s),
        Column<Visitor>::of<&Visitor::isExpected>(u"expected"_s, u"INTEGER NOT NULL"_s),
        Column<Visitor>::of<&Visitor::height>(u"height"_s, u"REAL NOT NULL"_s),
        Column<Visitor>::of<&Visitor::weight>(u"weight"_s, u"REAL"_s),
        Column<Visitor>::of<&Visitor::colour>(u"colour"_s, u"TEXT NOT NULL DEFAULT 'grey'"_s, 2),
        Column<Visitor>::of<&Visitor::shoes>(u"shoes"_s, u"TEXT"_s, 3),
    },
    true};

const QString creationOfVersion1 =
    u"CREATE TABLE visitor (number INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, family TEXT NOT NULL,"
    " remarks TEXT NOT NULL, picture TEXT NOT NULL, since TEXT NOT NULL, expected INTEGER NOT NULL,"
    " height REAL NOT NULL, weight REAL)"_s;

Visitor onlyVisitor(const Database& database)
{
    QSqlQuery row = database.run(u"SELECT "_s + visitors.selection() + u" FROM visitor"_s);
    EXPECT_TRUE(row.next());
    return visitors.recordIn(row);
}
} // namespace

TEST(Table, record_comesBackAsItWasAdded)
{
    const Database database{QString()};
    database.run(visitors.creation());
    const Visitor added{u"v"_s,   {u"Ёлкин"_s}, {u"a"_s, u"\"b\""_s}, "{}", QDate(2024, 2, 29), true, 1.75, 80.5,
                        u"red"_s, u"black"_s};
    database.run(u"INSERT "_s + visitors.insertion(), visitors.valuesOf(added));
    const Visitor found = onlyVisitor(database);
    EXPECT_EQ(found.id, added.id);
    EXPECT_EQ(found.name.family, added.name.family);
    EXPECT_EQ(found.remarks, added.remarks);
    EXPECT_EQ(found.picture, added.picture);
    EXPECT_EQ(found.since, added.since);
    EXPECT_EQ(found.isExpected, added.isExpected);
    EXPECT_EQ(found.height, added.height);
    EXPECT_EQ(found.weight, added.weight);
    EXPECT_EQ(found.colour, added.colour);
    EXPECT_EQ(found.shoes, added.shoes);
}

TEST(Table, emptyRecord_comesBackEmpty)
{
    const Database database{QString()};
    database.run(visitors.creation());
    database.run(u"INSERT "_s + visitors.insertion(), visitors.valuesOf({}));
    const Visitor found = onlyVisitor(database);
    EXPECT_EQ(found.id, QString());
    EXPECT_EQ(found.remarks, QStringList());
    EXPECT_FALSE(found.since.isValid());
    EXPECT_FALSE(found.isExpected);
    EXPECT_EQ(found.weight, std::nullopt);
    EXPECT_EQ(found.colour, QString());
}

TEST(Table, version_isThatOfTheNewestColumn)
{
    EXPECT_EQ(visitors.version(), 3);
    EXPECT_EQ((Table<Visitor>{u"empty"_s, {}}.version()), 1);
}

TEST(Table, additionsSinceTheNewestVersion_areNone)
{
    EXPECT_EQ(visitors.additionsSince(3), QStringList());
    EXPECT_EQ(visitors.additionsSince(2), QStringList{u"ALTER TABLE visitor ADD COLUMN shoes TEXT"_s});
}

TEST(Table, tableOfVersion1WithRow_getsNewerColumnsWithTheirDefaults)
{
    const Database database{QString()};
    database.run(creationOfVersion1);
    database.run(u"INSERT INTO visitor VALUES (1, 'v', 'Ёлкин', '[]', '', '2024-02-29', 1, 1.75, NULL)"_s);
    for (const QString& addition : visitors.additionsSince(1)) {
        database.run(addition);
    }
    const Visitor found = onlyVisitor(database);
    EXPECT_EQ(found.id, u"v"_s);
    EXPECT_EQ(found.since, QDate(2024, 2, 29));
    EXPECT_EQ(found.colour, u"grey"_s);
    EXPECT_EQ(found.shoes, QString());
}

TEST(Table, newColumnWithAnExpression_isFilledFromTheOthersInTheRowsThatExist)
{
    const Database database{QString()};
    database.run(u"CREATE TABLE visitor (number INTEGER PRIMARY KEY, id TEXT NOT NULL)"_s);
    database.run(u"INSERT INTO visitor VALUES (1, 'v')"_s);
    const Table<Visitor> table{
        u"visitor"_s,
        {Column<Visitor>::of<&Visitor::id>(u"id"_s, u"TEXT NOT NULL"_s),
         Column<Visitor>::of<&Visitor::shoes>(u"shoes"_s, u"TEXT NOT NULL DEFAULT ''"_s, 2, u"id || '-shoes'"_s)},
        true};
    for (const QString& addition : table.additionsSince(1)) {
        database.run(addition);
    }
    QSqlQuery row = database.run(u"SELECT "_s + table.selection() + u" FROM visitor"_s);
    ASSERT_TRUE(row.next());
    EXPECT_EQ(table.recordIn(row).shoes, u"v-shoes"_s);
}

TEST(Table, tableWithoutNumbers_hasNoRowids)
{
    const Table<Name> names{u"name"_s, {Column<Name>::of<&Name::family>(u"family"_s, u"TEXT PRIMARY KEY"_s)}};
    EXPECT_EQ(names.creation(), u"CREATE TABLE name (family TEXT PRIMARY KEY) WITHOUT ROWID"_s);
}
