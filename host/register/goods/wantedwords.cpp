// SPDX-License-Identifier: MIT
#include "wantedwords.h"

#include "searchtext.h"

#include <algorithm>

WantedWords::Letters WantedWords::lettersOf(QStringView searchText)
{
    Letters letters = 0;
    for (const QChar letter : searchText) {
        letters |= Letters(1) << (letter.unicode() % 64);
    }
    return letters;
}

WantedWords WantedWords::asTyped(const QString& search)
{
    WantedWords words;
    for (const QString& word : searchWords(search)) {
        words.add(word, {});
    }
    return words;
}

WantedWords WantedWords::onEitherLayout(const QString& search)
{
    WantedWords words;
    for (const QString& word : searchWords(search)) {
        words.add(word, onOtherLayout(word));
    }
    return words;
}

bool WantedWords::areIn(QStringView searchText, Letters letters) const
{
    return std::all_of(m_words.cbegin(), m_words.cend(),
                       [&](const Word& word) { return word.isIn(searchText, letters); });
}

void WantedWords::add(const QString& typed, const QString& otherwise)
{
    m_words.append({typed, otherwise, lettersOf(typed), lettersOf(otherwise)});
}

bool WantedWords::Word::isIn(QStringView searchText, Letters textLetters) const
{
    return ((letters & ~textLetters) == 0 && searchText.contains(typed)) ||
           (!otherwise.isEmpty() && (otherLetters & ~textLetters) == 0 && searchText.contains(otherwise));
}
