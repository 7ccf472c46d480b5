// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"

#include <QJsonObject>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

/// A position of a document: goods, quantity, price, and what plug-ins have put on it.
///
/// Amounts are in the currency's main unit (roubles), as doubles with two decimals. Owner: the document, through
/// shared pointers. Main thread.
class REGISTERPLATFORM_EXPORT GoodsItem
{
public:
    /// What the host knows of the position when it is made.
    struct Goods {
        int number = 0; ///< 1 for the first position; never changes
        QString name;
        double price = 0.0;          ///< asked per pack
        double minRetailPrice = 0.0; ///< lowest allowed price per pack; 0: none
        double tmcPrice = 0.0;       ///< catalogue price per pack
        double quantity = 1.0;       ///< packs
    };

    GoodsItem();
    explicit GoodsItem(const Goods& goods);
    virtual ~GoodsItem();
    Q_DISABLE_COPY_MOVE(GoodsItem)

    virtual int getNumber() const;
    virtual QString getName() const;
    virtual double getPrice() const;
    virtual void setPrice(double price);
    virtual double getMinRetailPrice() const;
    virtual double getTmcPrice() const;
    virtual double getQuantity() const;
    /// The position's sum: price times quantity, rounded to two decimals.
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
