// SPDX-License-Identifier: MIT
#include "goodslist.h"

#include "searchtext.h"
#include "wantedwords.h"

#include <QHash>
#include <QStringList>

struct GoodsList::Index {
    explicit Index(const QList<CatalogueGoods>& goods_)
        : goods(goods_)
    {
        rows.reserve(goods.size());
        for (const CatalogueGoods& one : goods) {
            add(one);
        }
    }

    QList<int> matching(const WantedWords& words) const
    {
        QList<int> found;
        for (qsizetype row = 0; row < rows.size(); ++row) {
            const Row& place = rows[row];
            if (words.areIn(QStringView(text).sliced(place.begin, place.length), place.letters)) {
                found.append(int(row));
            }
        }
        return found;
    }

    QList<CatalogueGoods> goods;
    QHash<QString, QStringList> spellings; ///< of non-proprietary names, by their search text

private:
    /// Where a row's search text is in `text`.
    struct Row {
        qsizetype begin;
        qsizetype length;
        WantedWords::Letters letters;
    };

    void add(const CatalogueGoods& one)
    {
        const QString nonProprietaryName = searchText(one.nonProprietaryName);
        QStringList& spelt = spellings[nonProprietaryName];
        if (!spelt.contains(one.nonProprietaryName)) {
            spelt.append(one.nonProprietaryName);
        }
        const qsizetype begin = text.size();
        text += searchText(one.name) + u'\n' + nonProprietaryName + u'\n' + searchText(one.barcode);
        const qsizetype length = text.size() - begin;
        rows.append({begin, length, WantedWords::lettersOf(QStringView(text).sliced(begin, length))});
    }

    QString text; ///< one for all rows, since a walk through one text is several times faster than through many
    QList<Row> rows;
};

GoodsList::GoodsList()
    : GoodsList(QList<CatalogueGoods>())
{
}

GoodsList::GoodsList(const QList<CatalogueGoods>& goods)
    : m_index(QSharedPointer<const Index>::create(goods))
{
}

GoodsList::GoodsList(std::initializer_list<CatalogueGoods> goods)
    : GoodsList(QList<CatalogueGoods>(goods))
{
}

const QList<CatalogueGoods>& GoodsList::all() const
{
    return m_index->goods;
}

QList<int> GoodsList::matching(const QString& search) const
{
    QList<int> found = m_index->matching(WantedWords::asTyped(search));
    if (found.isEmpty()) {
        found = m_index->matching(WantedWords::onEitherLayout(search));
    }
    return found;
}

QStringList GoodsList::spellings(const QString& wanted) const
{
    return m_index->spellings.value(searchText(wanted));
}
