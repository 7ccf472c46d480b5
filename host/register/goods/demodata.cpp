// SPDX-License-Identifier: MIT
#include "demodata.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace
{

/// A table of the goods database. It is filled from the list with the same name in the demo data, whose members are
/// named like the columns.
struct Table {
    const char* name;
    const char* definition;
    QStringList columns;
};

const QList<Table>& tables()
{
    static const QList<Table> all{
        {"goods",
         "code TEXT PRIMARY KEY, barcode TEXT UNIQUE, inn TEXT, name TEXT NOT NULL, price NUMERIC NOT NULL, "
         "catalogueprice NUMERIC, minretailprice NUMERIC, stock INTEGER NOT NULL",
         {u"code"_s, u"barcode"_s, u"inn"_s, u"name"_s, u"price"_s, u"catalogueprice"_s, u"minretailprice"_s,
          u"stock"_s}},
        {"medicine", "dictcode TEXT PRIMARY KEY, dictname TEXT NOT NULL", {u"dictcode"_s, u"dictname"_s}},
    };
    return all;
}

bool createTable(QSqlQuery& query, const Table& table, const QJsonArray& rows)
{
    const QString name = QString::fromLatin1(table.name);
    if (!query.exec(u"CREATE TABLE "_s + name + u" ("_s + QLatin1StringView(table.definition) + u')')) {
        return false;
    }
    const QString marks = QStringList(table.columns.size(), u"?"_s).join(u',');
    if (!query.prepare(u"INSERT INTO "_s + name + u" ("_s + table.columns.join(u',') + u") VALUES ("_s + marks +
                       u')')) {
        return false;
    }
    for (const auto row : rows) {
        for (const QString& column : table.columns) {
            query.addBindValue(row[column].toVariant());
        }
        if (!query.exec()) {
            return false;
        }
    }
    return true;
}

Expected<void, Failure> fillDatabase(QSqlDatabase database)
{
    QFile file(u":/demo/goods.json"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        return untranslatedFailure(file.errorString());
    }
    const QJsonDocument data = QJsonDocument::fromJson(file.readAll());
    if (!database.open() || !database.transaction()) {
        return untranslatedFailure(database.lastError().text());
    }
    QSqlQuery query(database);
    for (const Table& table : tables()) {
        if (!createTable(query, table, data[QLatin1StringView(table.name)].toArray())) {
            return untranslatedFailure(query.lastError().text());
        }
    }
    if (!database.commit()) {
        return untranslatedFailure(database.lastError().text());
    }
    return {};
}

} // namespace

Expected<void, Failure> createDemoGoods(const QString& file)
{
    if (QFile::exists(file)) {
        return {};
    }
    const QString connection = u"demo goods"_s;
    const QString unfinished = file + u".new"_s;
    QFile::remove(unfinished);
    Expected<void, Failure> filled;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection);
        database.setDatabaseName(unfinished);
        filled = fillDatabase(database);
        database.close();
    }
    QSqlDatabase::removeDatabase(connection);
    if (filled && !QFile::rename(unfinished, file)) {
        return untranslatedFailure(u"the file cannot be renamed to "_s + file);
    }
    return filled;
}
