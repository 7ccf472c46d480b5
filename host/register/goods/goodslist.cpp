// SPDX-License-Identifier: MIT
#include "goodslist.h"

#include "searchtext.h"

#include <QHash>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// A set of letters, folded into 64. What is not in a text's letters is not in the text.
using Letters = quint64;

Letters lettersOf(QStringView text)
{
    Letters letters = 0;
    for (const QChar letter : text) {
        letters |= Letters(1) << (letter.unicode() % 64);
    }
    return letters;
}

/// One of the words that are searched for. It is found as typed or, when it is set, as it is on the other layout.
struct Word {
    explicit Word(const QString& typed_, const QString& otherwise_ = {})
        : typed(typed_)
        , otherwise(otherwise_)
        , letters(lettersOf(typed_))
        , otherLetters(lettersOf(otherwise_))
    {
    }

    bool isIn(QStringView text, Letters textLetters) const
    {
        return ((letters & ~textLetters) == 0 && text.contains(typed)) ||
               (!otherwise.isEmpty() && (otherLetters & ~textLetters) == 0 && text.contains(otherwise));
    }

    QString typed;
    QString otherwise;
    Letters letters;
    Letters otherLetters;
};

QList<Word> wordsAsTyped(const QString& search)
{
    QList<Word> words;
    for (const QString& word : searchWords(search)) {
        words.append(Word(word));
    }
    return words;
}

QList<Word> wordsOnEitherLayout(const QString& search)
{
    QList<Word> words;
    for (const QString& word : searchWords(search)) {
        words.append(Word(word, onOtherLayout(word)));
    }
    return words;
}

} // namespace

struct GoodsList::Index {
    explicit Index(const QList<CatalogueGoods>& goods_)
        : goods(goods_)
    {
        rows.reserve(goods.size());
        for (const CatalogueGoods& one : goods) {
            add(one);
        }
    }

    QList<int> matching(const QList<Word>& words) const
    {
        QList<int> found;
        for (qsizetype row = 0; row < rows.size(); ++row) {
            const Row& place = rows[row];
            const QStringView searched = QStringView(text).sliced(place.begin, place.length);
            if (std::all_of(words.cbegin(), words.cend(),
                            [&](const Word& word) { return word.isIn(searched, place.letters); })) {
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
        Letters letters;
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
        rows.append({begin, length, lettersOf(QStringView(text).sliced(begin, length))});
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
    QList<int> found = m_index->matching(wordsAsTyped(search));
    if (found.isEmpty()) {
        found = m_index->matching(wordsOnEitherLayout(search));
    }
    return found;
}

QStringList GoodsList::spellings(const QString& wanted) const
{
    return m_index->spellings.value(searchText(wanted));
}
