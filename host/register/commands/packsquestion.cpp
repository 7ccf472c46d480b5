// SPDX-License-Identifier: MIT
#include "packsquestion.h"

#include "amount.h"

using namespace Qt::StringLiterals;

namespace
{

const tr::Tr& sellAnyway()
{
    static const tr::Tr text(u"outOfStockYes"_s, u"Продать"_s);
    return text;
}

const tr::Tr& no()
{
    static const tr::Tr text(u"questionNo"_s, u"Нет"_s);
    return text;
}

/// The pack may be on the counter all the same.
Question outOfStock(const QString& name)
{
    return {{u"outOfStockTitle"_s, u"Товара нет на остатке"_s},
            tr::Tr(u"outOfStockQuestion"_s, u"На остатке нет товара:\n%1\nВсё равно продать?"_s).arg(name),
            sellAnyway(),
            no()};
}

Question beyondStock(const AddedPacks& packs)
{
    return {{u"beyondStockTitle"_s, u"Больше, чем на остатке"_s},
            tr::Tr(u"beyondStockQuestion"_s, u"На остатке %1 уп., а в чеке будет %2:\n%3\nВсё равно продать?"_s)
                .arg(QString::number(*packs.stock))
                .arg(packsText(packs.after))
                .arg(packs.name),
            sellAnyway(),
            no()};
}

Question unusual(const AddedPacks& packs)
{
    return {{u"manyPacksTitle"_s, u"Много упаковок"_s},
            tr::Tr(u"manyPacksQuestion"_s, u"В чеке будет %1 уп. товара:\n%2\nКоличество верное?"_s)
                .arg(packsText(packs.after))
                .arg(packs.name),
            {u"manyPacksYes"_s, u"Верное"_s},
            no()};
}

} // namespace

std::optional<Question> AddedPacks::question() const
{
    if (after <= before) {
        return std::nullopt;
    }
    if (stock && after > *stock) {
        return *stock > 0 ? beyondStock(*this) : outOfStock(name);
    }
    const bool exceedsUsual = before <= usual && after > usual;
    return entered > usual || exceedsUsual ? std::optional(unusual(*this)) : std::nullopt;
}

bool AddedPacks::areWanted() const
{
    const std::optional<Question> asked = question();
    return !asked || asked->ask();
}
