// SPDX-License-Identifier: MIT
#include "goodscatalogue.h"

#include "activitynotifier.h"
#include "config.h"
#include "connectionfactory.h"
#include "databaseaccess.h"
#include "goodsreader.h"
#include "sqlfailure.h"

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace
{

constexpr int usualRefresh = 60;
/// The reader gives a silent server up by itself; this is for a disk that hangs.
constexpr int timeoutsForAnswer = 12;

DatabaseAccess goodsDatabase()
{
    return DatabaseAccess::configured(u"Database"_s);
}

std::chrono::seconds configuredRefresh()
{
    return std::chrono::seconds(std::max(1, Singleton<Config>::get()->getInt(u"Database:refresh"_s, usualRefresh)));
}

tr::Tr unreadable(const Failure& failure)
{
    return tr::Tr(u"goodsCatalogueUnreadable"_s, u"Справочник товаров недоступен: %1\nПроверьте базу данных товаров "
                                                 "и повторите или позовите администратора."_s)
        .arg(failure.text.ui());
}

GoodsReader& readerFor(std::unique_ptr<GoodsReader>& reader, const DatabaseAccess& access,
                       std::chrono::seconds freshness)
{
    if (!reader || reader->access() != access) {
        reader = std::make_unique<GoodsReader>(access, freshness);
    }
    return *reader;
}

} // namespace

GoodsReadingStopped::GoodsReadingStopped()
    : BasicException({u"goodsReadingStopped"_s, u"Чтение справочника товаров прекращено кассиром. Чтобы прочитать его, "
                                                "дайте команду ещё раз."_s})
{
}

/// What came of a job in the reading thread.
struct GoodsCatalogue::Outcome {
    DatabaseAccess access = {};
    Expected<bool> fileChange = false;
    Expected<GoodsList> goods = GoodsList();
};

GoodsCatalogue::GoodsCatalogue()
{
    for (Desk* desk : {&m_lookUps, &m_all}) {
        desk->reader = std::make_shared<std::unique_ptr<GoodsReader>>();
    }
    connect(&m_refresh, &QTimer::timeout, this, &GoodsCatalogue::refresh);
}

GoodsCatalogue::~GoodsCatalogue()
{
    for (Desk* desk : {&m_lookUps, &m_all}) {
        desk->thread.finish([reader = desk->reader] { reader->reset(); });
    }
}

void GoodsCatalogue::keepFresh()
{
    Singleton<ActivityNotifier>::get()->subscribe(this);
    m_refresh.start(configuredRefresh());
    refresh();
}

GoodsList GoodsCatalogue::goodsOf(const QString& nonProprietaryName) const
{
    const QString wanted = nonProprietaryName.trimmed();
    if (wanted.isEmpty()) {
        return read(deskOfAll(), [](GoodsReader& reader) { return reader.all(); });
    }
    return read(m_lookUps, [wanted](GoodsReader& reader) { return reader.ofName(wanted); });
}

GoodsList GoodsCatalogue::withBarcode(const QString& barcode) const
{
    return read(m_lookUps, [barcode](GoodsReader& reader) { return reader.withBarcode(barcode); });
}

std::optional<CatalogueGoods> GoodsCatalogue::byBarcode(const QString& barcode) const
{
    const GoodsList goods = withBarcode(barcode);
    return goods.isEmpty() ? std::nullopt : std::optional(goods.at(0));
}

/// A file that was replaced is taken between two documents.
void GoodsCatalogue::handleEvent(const Event& event)
{
    if (event.getCode() == EActivityListener::DocumentClosed ||
        event.getCode() == EActivityListener::DocumentCancelled) {
        QMetaObject::invokeMethod(this, &GoodsCatalogue::refresh, Qt::QueuedConnection);
    }
}

GoodsCatalogue::Desk& GoodsCatalogue::deskOfAll() const
{
    return goodsDatabase().isFile() ? m_lookUps : m_all;
}

GoodsList GoodsCatalogue::read(Desk& desk, const Reading& reading) const
{
    const auto outcome = std::make_shared<Outcome>();
    const std::chrono::seconds timeout = goodsDatabase().timeout;
    const auto ending = desk.thread.run(job(desk, reading, outcome), timeoutsForAnswer * timeout,
                                        {u"goodsCatalogueBeingRead"_s, u"Читается справочник товаров"_s});
    if (ending == ReadingThread::Ending::Stopped) {
        throw GoodsReadingStopped();
    }
    if (ending == ReadingThread::Ending::Late) {
        throw BasicException(unreadable(silentServer(timeoutsForAnswer * timeout)));
    }
    showFileChange(*outcome);
    if (!outcome->goods) {
        throw BasicException(unreadable(outcome->goods.failure()));
    }
    return *outcome->goods;
}

/// The outcome outlives a caller that has given up.
std::function<void()> GoodsCatalogue::job(const Desk& desk, const Reading& reading,
                                          const std::shared_ptr<Outcome>& outcome) const
{
    outcome->access = goodsDatabase();
    return [kept = desk.reader, freshness = configuredRefresh(), betweenDocuments = !getDocument(), reading, outcome] {
        GoodsReader& reader = readerFor(*kept, outcome->access, freshness);
        if (betweenDocuments) {
            outcome->fileChange = reader.takeReplacedFile();
        }
        outcome->goods = reading(reader);
    };
}

void GoodsCatalogue::refresh()
{
    if (m_isRefreshing) {
        return;
    }
    m_isRefreshing = true;
    const auto outcome = std::make_shared<Outcome>();
    Desk& desk = deskOfAll();
    const auto reading = job(
        desk, [](GoodsReader& reader) { return reader.all(); }, outcome);
    desk.thread.post([this, reading, outcome] {
        reading();
        QMetaObject::invokeMethod(
            this, [this, outcome] { finishRefresh(*outcome); }, Qt::QueuedConnection);
    });
}

void GoodsCatalogue::finishRefresh(const Outcome& outcome)
{
    m_isRefreshing = false;
    showFileChange(outcome);
    handOver(outcome);
    const bool failedBefore = m_hasFailed;
    m_hasFailed = !outcome.goods;
    if (m_hasFailed && !failedBefore) {
        emit failed(unreadable(outcome.goods.failure()));
    } else if (failedBefore && !m_hasFailed) {
        emit recovered();
    }
}

/// Look-ups at a server need not ask for the names again.
void GoodsCatalogue::handOver(const Outcome& outcome) const
{
    if (outcome.access.isFile() || !outcome.goods) {
        return;
    }
    m_lookUps.thread.post([kept = m_lookUps.reader, access = outcome.access, freshness = configuredRefresh(),
                           all = *outcome.goods] { readerFor(*kept, access, freshness).keep(all); });
}

void GoodsCatalogue::showFileChange(const Outcome& outcome) const
{
    if (!outcome.fileChange) {
        emit fileRefused(tr::Tr(u"goodsFileRefused"_s,
                                u"Новый файл справочника товаров не читается: %1\nРабота "
                                "продолжается со старым. Замените файл или позовите администратора."_s)
                             .arg(outcome.fileChange.failure().text.ui()));
    } else if (*outcome.fileChange) {
        m_isFileNewToPlugins = true;
    }
    if (m_isFileNewToPlugins && !getDocument()) {
        Singleton<ConnectionFactory>::get()->takeReplacedFiles();
        m_isFileNewToPlugins = false;
    }
}
