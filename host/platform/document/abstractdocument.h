// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "goodsitem.h"

#include <QHash>
#include <QJsonObject>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QSharedPointer>
#include <QVariant>

/// A document of the register: the open receipt, a stored one, a closed sale.
///
/// Owner: the host, through shared pointers; a plug-in keeps none beyond the call that gave it one. Main thread.
class REGISTERPLATFORM_EXPORT AbstractDocument : public QObject
{
    Q_OBJECT

public:
    enum Type : int {
        Sale = 1,
        Return = 25, ///< takes back a closed sale
    };

    /// The version that toJson() writes under "format".
    static constexpr int formatVersion = 1;

    explicit AbstractDocument(QObject* parent = nullptr);
    ~AbstractDocument() override;

    /// A value of Type, as a plain number: the host may have more kinds.
    virtual int getType() const = 0;
    /// The positions in the order of the receipt; cancelled ones are not among them.
    virtual QList<QSharedPointer<GoodsItem>> getPositions() const = 0;
    /// The position with that number; null when there is none.
    virtual QSharedPointer<GoodsItem> getPosition(int number) const;
    /// True once the document is finished and can no longer change.
    virtual bool isClosed() const;

    /// The file within the data folder that the document is saved in, when its saver names none: that of the open
    /// receipt. A document that is not the open receipt names a file of its own, perhaps in a subfolder, so that it
    /// never replaces the receipt.
    virtual QString fileName() const;

    /// What a plug-in stored here under its own name; `def` when it stored nothing. Saved with the document.
    virtual QVariant getPluginValue(const QString& plugin, const QString& key, const QVariant& def) const;
    /// Stores a value that JSON can hold (text, number, bool, list, map); an invalid one removes the entry.
    virtual void setPluginValue(const QString& plugin, const QString& key, const QVariant& value);

    /// Everything of the document, as it is saved; docs/document-format.md has the members. A host's document adds
    /// members of its own.
    virtual QJsonObject toJson() const;

protected:
    /// All plug-in values: plug-in, then key.
    const QHash<QString, QVariantMap>& pluginValues() const { return m_pluginValues; }

private:
    QHash<QString, QVariantMap> m_pluginValues;
};

Q_DECLARE_METATYPE(QSharedPointer<AbstractDocument>)
