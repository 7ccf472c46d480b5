// SPDX-License-Identifier: MIT
#pragma once

#include "storedvalue.h"

#include <QList>
#include <QSqlQuery>
#include <QStringList>

#include <algorithm>

namespace emulator
{
/// A member of a record, and its column in the database.
template <typename Record>
struct Column {
    QString name;
    QString type; ///< SQL type with its constraints
    QVariant (*bind)(const Record& record) = nullptr;
    void (*read)(Record& record, const QVariant& value) = nullptr;
    int since = 1; ///< the schema version that brought the column; above 1 its type needs a DEFAULT, or allows NULL
    QString filled = {}; ///< SQL expression that a file from before that version is filled with; empty: the DEFAULT

    /// The column of a member, or of a member's member.
    template <auto Member, auto... Inner>
    static Column of(const QString& name, const QString& type, int since = 1, const QString& filled = {})
    {
        return {name,
                type,
                [](const Record& record) { return stored(memberOf<Member, Inner...>(record)); },
                [](Record& record, const QVariant& value) { restore(memberOf<Member, Inner...>(record), value); },
                since,
                filled};
    }

private:
    template <auto Member, auto... Inner>
    static auto& memberOf(auto& record)
    {
        if constexpr (sizeof...(Inner) == 0) {
            return record.*Member;
        } else {
            return memberOf<Inner...>(record.*Member);
        }
    }
};

/// The table of a record: every statement about its columns is made from the list of them.
template <typename Record>
struct Table {
    QString name;
    QList<Column<Record>> columns;
    bool isNumbered = false; ///< the column "number" keeps the order in which records were added

    QString creation() const
    {
        using namespace Qt::StringLiterals;
        QStringList definitions;
        if (isNumbered) {
            definitions.append(u"number INTEGER PRIMARY KEY"_s);
        }
        for (const Column<Record>& column : columns) {
            definitions.append(column.name + u' ' + column.type);
        }
        return u"CREATE TABLE "_s + name + u" ("_s + definitions.join(u", "_s) +
               (isNumbered ? u")"_s : u") WITHOUT ROWID"_s);
    }

    /// Adds the columns that are newer than that schema version, and fills them.
    QStringList additionsSince(int version) const
    {
        using namespace Qt::StringLiterals;
        QStringList statements;
        for (const Column<Record>& column : columns) {
            if (column.since <= version) {
                continue;
            }
            statements.append(u"ALTER TABLE "_s + name + u" ADD COLUMN "_s + column.name + u' ' + column.type);
            if (!column.filled.isEmpty()) {
                statements.append(u"UPDATE "_s + name + u" SET "_s + column.name + u" = "_s + column.filled);
            }
        }
        return statements;
    }

    /// The schema version of the table's newest column.
    int version() const
    {
        int newest = 1;
        for (const Column<Record>& column : columns) {
            newest = std::max(newest, column.since);
        }
        return newest;
    }

    /// Takes valuesOf().
    QString insertion() const
    {
        using namespace Qt::StringLiterals;
        const QStringList placeholders(columns.size(), u"?"_s);
        return u"INTO "_s + name + u" ("_s + names(QString()) + u") VALUES ("_s + placeholders.join(u", "_s) + u')';
    }

    QVariantList valuesOf(const Record& record) const
    {
        QVariantList values;
        for (const Column<Record>& column : columns) {
            values.append(column.bind(record));
        }
        return values;
    }

    /// All columns, for recordIn().
    QString selection() const
    {
        using namespace Qt::StringLiterals;
        return names(name + u'.');
    }

    /// The record in a row of a query that begins with selection().
    Record recordIn(const QSqlQuery& row) const
    {
        Record record;
        for (int index = 0; index < columns.size(); ++index) {
            columns.at(index).read(record, row.value(index));
        }
        return record;
    }

private:
    QString names(const QString& prefix) const
    {
        using namespace Qt::StringLiterals;
        QStringList all;
        for (const Column<Record>& column : columns) {
            all.append(prefix + column.name);
        }
        return all.join(u", "_s);
    }
};
} // namespace emulator
