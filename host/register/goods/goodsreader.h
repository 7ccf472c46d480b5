// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"
#include "goodslist.h"
#include "readonlyconnection.h"

#include <QElapsedTimer>
#include <QString>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <optional>

class QSqlQuery;

/// Reads the table `goods` of the goods database. It belongs to the thread that makes it, and keeps a connection and
/// the list of all goods.
///
/// A lost connection is opened anew, once. Failures are the ends of sentences.
class GoodsReader
{
public:
    /// @param freshness how old the kept list of a server's goods may be. That of a file is read again whenever the
    /// file
    ///        has changed
    GoodsReader(const DatabaseAccess& access, std::chrono::seconds freshness);

    const DatabaseAccess& access() const { return m_connection.access(); }

    /// All goods, sorted by name.
    Expected<GoodsList> all();
    /// The goods of a non-proprietary name, compared as searchText(), sorted by name. Only those are read.
    Expected<GoodsList> ofName(const QString& nonProprietaryName);
    Expected<GoodsList> withBarcode(const QString& barcode);

    /// Keeps all goods of a server, which another reader has just read.
    void keep(const GoodsList& all);

    /// Takes a file that replaced the one in use; see ReadOnlyConnection::takeReplacedFile().
    Expected<bool> takeReplacedFile();

private:
    using Reading = std::function<Expected<GoodsList>(const QSqlDatabase&)>;

    Expected<GoodsList> attempt(const Reading& reading);
    Expected<GoodsList> readAll(const QSqlDatabase& database);
    Expected<GoodsList> readOfName(const QSqlDatabase& database, const QString& nonProprietaryName);
    Expected<GoodsList> rows(const QSqlDatabase& database, const QString& condition, const QVariantList& values);
    Expected<QStringList> spellings(const QSqlDatabase& database, const QString& nonProprietaryName);
    /// Runs a query and hands its rows over.
    Expected<void> query(const QSqlDatabase& database, const QString& statement, const QVariantList& values,
                         const std::function<void(const QSqlQuery&)>& row);
    bool isListCurrent(const QSqlDatabase& database) const;

    ReadOnlyConnection m_connection;
    std::chrono::seconds m_freshness;
    std::optional<GoodsList> m_all;
    QString m_version;       ///< of the file when m_all was read
    QElapsedTimer m_age;     ///< of m_all
    bool m_isSilent = false; ///< the last query waited in vain
    bool m_hasRead = false;  ///< the table could be read on this connection
};
