// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "kopecks.h"

#include <QJsonObject>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

#include <optional>

/// A position of a document: goods, quantity, price, and what plug-ins have put on it.
///
/// Amounts are kept in whole kopecks. The getters and setPrice() have them in roubles, as doubles with two decimals.
/// Owner: the document, through shared pointers. Main thread.
class REGISTERPLATFORM_EXPORT GoodsItem
{
public:
    /// What the host knows of the position when it is made.
    struct Goods {
        int number = 0; ///< 1 for the first position; never changes
        QString name;
        Kopecks price = {};          ///< asked per pack
        Kopecks minRetailPrice = {}; ///< lowest allowed price per pack; 0: none
        Kopecks tmcPrice = {};       ///< catalogue price per pack
        double quantity = 1.0;       ///< packs, up to three decimals
    };

    /// No price is greater.
    static constexpr Kopecks greatestPrice{10'000'000'000};
    /// No quantity is greater. The greatest sum fits into Kopecks.
    static constexpr double greatestQuantity = 100'000.0;

    /// The price in kopecks; empty for what setPrice() refuses.
    static std::optional<Kopecks> priceOf(double roubles);

    GoodsItem();
    explicit GoodsItem(const Goods& goods);
    virtual ~GoodsItem();
    Q_DISABLE_COPY_MOVE(GoodsItem)

    virtual int getNumber() const;
    virtual QString getName() const;
    virtual double getPrice() const;
    /// Rounds the price to kopecks. A price that is no number, or beyond 100 000 000 roubles on either side of 0, is
    /// refused: the price stays as it is, and the log names the plug-in that set it.
    virtual void setPrice(double price);
    virtual double getMinRetailPrice() const;
    virtual double getTmcPrice() const;
    virtual double getQuantity() const;
    /// The position's sum: the price in kopecks times the quantity, rounded to kopecks, halves away from zero.
    virtual double getSumb() const;

    virtual QStringList getTags() const;
    /// Adds a tag; a tag that is there already is not added again.
    virtual void setTag(const QString& tag);

    /// A plug-in's own data on the position; JSON by convention, empty at first.
    virtual QString getExtendedOptions() const;
    virtual void setExtendedOptions(const QString& options);

    /// The id of the external document that the position comes from, for example a prescription; empty: none.
    virtual QString getSoftCheckId() const;
    virtual void setSoftCheckId(const QString& id);

    /// The plug-in that the position belongs to, by the name that PluginScope gives it; empty: none, or not known
    /// which.
    ///
    /// It is the plug-in that set the soft check id; without one, the first that set a tag or the options.
    QString getPlugin() const { return m_plugin; }

    /// Everything of the position, as it is saved; docs/document-format.md has the members.
    virtual QJsonObject toJson() const;

protected:
    Goods m_goods;
    QString m_plugin;

private:
    void noteMarking();

    QStringList m_tags;
    QString m_extendedOptions;
    QString m_softCheckId;
};
