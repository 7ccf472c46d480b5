// SPDX-License-Identifier: MIT
#include "demodata.h"

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>

namespace
{

/// A table of the goods database and the list of the demo data that fills it; its columns are named alike.
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
         {QStringLiteral("code"), QStringLiteral("barcode"), QStringLiteral("inn"), QStringLiteral("name"),
          QStringLiteral("price"), QStringLiteral("catalogueprice"), QStringLiteral("minretailprice"),
          QStringLiteral("stock")}},
        {"medicine",
         "dictcode TEXT PRIMARY KEY, dictname TEXT NOT NULL",
         {QStringLiteral("dictcode"), QStringLiteral("dictname")}},
    };
    return all;
}

bool createTable(QSqlQuery& query, const Table& table, const QJsonArray& rows)
{
    const QString name = QString::fromLatin1(table.name);
    if (!query.exec(QStringLiteral("CREATE TABLE ") + name + QStringLiteral(" (") + QLatin1String(table.definition) +
                    QLatin1Char(')')))
        return false;
    const QString marks = QStringList(table.columns.size(), QStringLiteral("?")).join(QLatin1Char(','));
    if (!query.prepare(QStringLiteral("INSERT INTO ") + name + QStringLiteral(" (") +
                       table.columns.join(QLatin1Char(',')) + QStringLiteral(") VALUES (") + marks + QLatin1Char(')')))
        return false;
    for (const auto row : rows) {
        for (const QString& column : table.columns)
            query.addBindValue(row[column].toVariant());
        if (!query.exec())
            return false;
    }
    return true;
}

/// Empty, or what went wrong.
QString fillDatabase(QSqlDatabase database)
{
    QFile file(QStringLiteral(":/demo/goods.json"));
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QJsonDocument data = QJsonDocument::fromJson(file.readAll());
    if (!database.open() || !database.transaction())
        return database.lastError().text();
    QSqlQuery query(database);
    for (const Table& table : tables())
        if (!createTable(query, table, data[QLatin1String(table.name)].toArray()))
            return query.lastError().text();
    return database.commit() ? QString() : database.lastError().text();
}

} // namespace

bool createDemoGoods(const QString& file)
{
    if (QFile::exists(file))
        return true;
    const QString connection = QStringLiteral("demo goods");
    const QString unfinished = file + QStringLiteral(".new");
    QFile::remove(unfinished);
    QString failure;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(unfinished);
        failure = fillDatabase(database);
        database.close();
    }
    QSqlDatabase::removeDatabase(connection);
    if (failure.isEmpty() && !QFile::rename(unfinished, file))
        failure = QStringLiteral("it cannot be renamed to ") + file;
    if (failure.isEmpty())
        return true;
    Log4Qt::LogManager::logger(QStringLiteral("register"))
        ->error(QStringLiteral("The demo goods were not made: ") + failure);
    return false;
}
