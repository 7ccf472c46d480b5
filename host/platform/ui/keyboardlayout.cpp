// SPDX-License-Identifier: MIT
#include "keyboardlayout_p.h"

const KeyboardLayout* KeyboardLayout::find(const QString& name)
{
    static const QList<KeyboardLayout> layouts{
        {QStringLiteral("ru"),
         QStringLiteral("РУС"),
         {
             QStringLiteral("1 2 3 4 5 6 7 8 9 0 - backspace"),
             QStringLiteral("й ц у к е н г ш щ з х ъ"),
             QStringLiteral("ф ы в а п р о л д ж э ё"),
             QStringLiteral("shift я ч с м и т ь б ю . ,"),
             QStringLiteral("layout space enter"),
         },
         false},
        {QStringLiteral("en"),
         QStringLiteral("ENG"),
         {
             QStringLiteral("1 2 3 4 5 6 7 8 9 0 - backspace"),
             QStringLiteral("q w e r t y u i o p"),
             QStringLiteral("a s d f g h j k l"),
             QStringLiteral("shift z x c v b n m . , / @"),
             QStringLiteral("layout space enter"),
         },
         false},
        {QStringLiteral("digits"),
         QStringLiteral("123"),
         {
             QStringLiteral("7 8 9"),
             QStringLiteral("4 5 6"),
             QStringLiteral("1 2 3"),
             QStringLiteral(", 0 backspace"),
             QStringLiteral("layout enter"),
         },
         true},
    };
    for (const KeyboardLayout& layout : layouts)
        if (layout.name == name)
            return &layout;
    return nullptr;
}
