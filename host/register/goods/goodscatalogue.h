// SPDX-License-Identifier: MIT
#pragma once

#include "baseactivitylistener.h"
#include "basicexception.h"
#include "documentwatcher.h"
#include "expected.h"
#include "goodslist.h"
#include "readingthread.h"
#include "tr.h"

#include <QString>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

class GoodsReader;

/// The cashier stopped the reading of the goods. That is no error.
class GoodsReadingStopped : public BasicException
{
public:
    GoodsReadingStopped();
};

/// The goods that the pharmacy sells: the table `goods` of the goods database, read only.
///
/// It is read in threads of its own. Who asks waits, behind the busy screen when it takes long; a server that does not
/// answer is waited for "Database:timeout" seconds. A look-up does not wait until all goods of a slow server are read.
/// Every operation throws BasicException with a text for the cashier when the table cannot be read, and
/// GoodsReadingStopped when the cashier does not want to wait; the next one tries again. A file that was replaced is
/// taken while no document is open.
class GoodsCatalogue : public BaseActivityListener, private DocumentWatcher
{
    Q_OBJECT

public:
    GoodsCatalogue();
    ~GoodsCatalogue() override;

    /// Reads the goods in the background, now, after each document, and every "Database:refresh" seconds, so that the
    /// list opens at once. Emits failed() and recovered().
    void keepFresh();

    /// The goods with that non-proprietary name, compared as searchText(), sorted by name; all goods when it is empty.
    GoodsList goodsOf(const QString& nonProprietaryName) const;
    /// The goods with that bar code, sorted by name.
    GoodsList withBarcode(const QString& barcode) const;
    /// The first one of them.
    std::optional<CatalogueGoods> byBarcode(const QString& barcode) const;

    void handleEvent(const Event& event) override;

signals:
    /// Reading in the background failed, for the first time since it last succeeded.
    void failed(const tr::Tr& message);
    /// Reading in the background succeeds again.
    void recovered();
    /// A file that replaced the one in use cannot be read; the old one stays in use.
    void fileRefused(const tr::Tr& message) const;

private:
    struct Outcome;
    using Reading = std::function<Expected<GoodsList>(GoodsReader&)>;

    /// A reader and the thread that alone touches it.
    struct Desk {
        std::shared_ptr<std::unique_ptr<GoodsReader>> reader;
        ReadingThread thread;
    };

    Desk& deskOfAll() const;
    GoodsList read(Desk& desk, const Reading& reading) const;
    std::function<void()> job(const Desk& desk, const Reading& reading, const std::shared_ptr<Outcome>& outcome) const;
    void refresh();
    void finishRefresh(const Outcome& outcome);
    void handOver(const Outcome& outcome) const;
    void showFileChange(const Outcome& outcome) const;

    mutable Desk m_lookUps;
    mutable Desk m_all; ///< of a server; one desk reads everything of a file
    QTimer m_refresh;
    bool m_isRefreshing = false;
    bool m_hasFailed = false;
    mutable bool m_isFileNewToPlugins = false; ///< the catalogue has taken a file that their connections have not
};
