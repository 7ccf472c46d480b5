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

/// A document of the register, a sale or a return: open, suspended or closed.
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

    /// The file of the open document, within the data folder.
    static const QString openDocumentFile;

    explicit AbstractDocument(QObject* parent = nullptr);
    ~AbstractDocument() override;

    /// A value of Type, as a plain number: the host may have more kinds.
    virtual int getType() const = 0;
    /// The positions in order, without the removed ones.
    virtual QList<QSharedPointer<GoodsItem>> getPositions() const = 0;
    /// The position with that number; null when there is none.
    virtual QSharedPointer<GoodsItem> getPosition(int number) const;
    /// True once the document is finished and can no longer change.
    virtual bool isClosed() const;

    /// The file within the data folder that the document is saved in when its saver names none: openDocumentFile. A
    /// document that is not the open one names a file of its own, perhaps in a subfolder, so that it never replaces
    /// the open one.
    virtual QString fileName() const;

    /// What a plug-in stored here under its own name; `def` when it stored nothing. Saved with the document.
    virtual QVariant getPluginValue(const QString& plugin, const QString& key, const QVariant& def) const;
    /// Stores a value that JSON can hold (text, number, bool, list, map); an invalid one removes the entry.
    virtual void setPluginValue(const QString& plugin, const QString& key, const QVariant& value);

    /// Everything of the document, as it is saved; docs/document-format.md has the members. A host's document adds
    /// members of its own.
    virtual QJsonObject toJson() const;

    /// Names the document for good, also after it was moved, closed or cancelled; no other document has the same.
    /// Empty: it has no name.
    virtual QString identifier() const;

    /// True when it was cancelled or voided: nothing was handed out with it, or all of it came back.
    virtual bool isUndone() const;

private:
    QHash<QString, QVariantMap> m_pluginValues; ///< by plug-in, then by key
};

Q_DECLARE_METATYPE(QSharedPointer<AbstractDocument>)
