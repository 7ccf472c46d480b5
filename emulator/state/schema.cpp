// SPDX-License-Identifier: MIT
#include "schema.h"

#include "emulatorerror.h"
#include "tables.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace emulator::schema
{
namespace
{
const QString ruleTable = u"CREATE TABLE rule (name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID"_s;

const QStringList indexes{
    u"CREATE INDEX prescription_of_card ON prescription (card, number)"_s,
    u"CREATE INDEX dispense_of_prescription ON dispense (prescription, number)"_s,
};

/// The results of the function for all tables, each after those that it refers to.
template <typename Function>
auto forEachTable(const Function& function)
{
    return std::array{function(tables::clients()),       function(tables::payers()),
                      function(tables::practitioners()), function(tables::patients()),
                      function(tables::prescriptions()), function(tables::dispenses())};
}

void create(const Database& database)
{
    database.run(ruleTable);
    for (const QString& table : forEachTable([](const auto& table) { return table.creation(); })) {
        database.run(table);
    }
    for (const QString& index : indexes) {
        database.run(index);
    }
}

void migrate(const Database& database, int from)
{
    for (const QStringList& additions :
         forEachTable([from](const auto& table) { return table.additionsSince(from); })) {
        for (const QString& addition : additions) {
            database.run(addition);
        }
    }
}

bool isEmpty(const Database& database)
{
    return !database.run(u"SELECT 1 FROM sqlite_master WHERE name = 'prescription'"_s).next();
}
} // namespace

int version()
{
    const auto versions = forEachTable([](const auto& table) { return table.version(); });
    return *std::max_element(versions.begin(), versions.end());
}

void prepare(Database& database, const QString& file)
{
    const int found = database.schemaVersion();
    if (found > version()) {
        throw EmulatorError(u"the data file %1 has schema version %2, but this emulator knows versions up to %3; "
                            "use a newer emulator or another data file"_s.arg(file, QString::number(found),
                                                                              QString::number(version())));
    }
    if (found == version()) {
        return;
    }
    database.inTransaction([&database, found] {
        if (isEmpty(database)) {
            create(database);
        } else {
            migrate(database, std::max(found, 1));
        }
        database.setSchemaVersion(version());
    });
}
} // namespace emulator::schema
