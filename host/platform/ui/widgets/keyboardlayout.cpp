// SPDX-License-Identifier: MIT
#include "keyboardlayout_p.h"

#include <algorithm>

using namespace Qt::StringLiterals;

bool KeyboardLayout::canType(QChar character) const
{
    const QStringList keys = rows.join(u' ').split(u' ');
    const bool hasShift = keys.contains(shift);
    const auto writes = [character, hasShift](const QString& key) {
        return key.size() == 1 && (key.front() == character || (hasShift && key.front().toUpper() == character));
    };
    return (character == u' ' && keys.contains(space)) || std::any_of(keys.cbegin(), keys.cend(), writes);
}

const KeyboardLayout* KeyboardLayout::find(const QString& name)
{
    static const QList<KeyboardLayout> layouts{
        {u"ru"_s,
         u"РУС"_s,
         {
             u"1 2 3 4 5 6 7 8 9 0 - backspace"_s,
             u"й ц у к е н г ш щ з х ъ"_s,
             u"ф ы в а п р о л д ж э ё"_s,
             u"shift я ч с м и т ь б ю . ,"_s,
             u"layout space enter"_s,
         },
         false},
        {u"en"_s,
         u"ENG"_s,
         {
             u"1 2 3 4 5 6 7 8 9 0 - backspace"_s,
             u"q w e r t y u i o p"_s,
             u"a s d f g h j k l"_s,
             u"shift z x c v b n m . , / @"_s,
             u"layout space enter"_s,
         },
         false},
        {u"symbols"_s,
         u"#+="_s,
         {
             u"1 2 3 4 5 6 7 8 9 0 - backspace"_s,
             u"! ? \" ' ` ( ) [ ] { } №"_s,
             u"@ # $ % ^ & * + = < > ~"_s,
             u". , : ; / \\ | _"_s,
             u"layout space enter"_s,
         },
         false},
        {u"digits"_s,
         u"123"_s,
         {
             u"7 8 9"_s,
             u"4 5 6"_s,
             u"1 2 3"_s,
             u", 0 backspace"_s,
             u"layout enter"_s,
         },
         true},
    };
    for (const KeyboardLayout& layout : layouts) {
        if (layout.name == name) {
            return &layout;
        }
    }
    return nullptr;
}
