// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

/// The words of a search. A text has them when each is a part of it, in any order.
///
/// A value type. Words and texts are compared as searchText().
class WantedWords
{
public:
    /// A set of letters, folded into 64. What is not in a text's letters is not in the text.
    using Letters = quint64;
    static Letters lettersOf(QStringView searchText);

    /// No words, which every text has.
    WantedWords() = default;
    /// The words as they are typed.
    static WantedWords asTyped(const QString& search);
    /// Each word as it is typed, or as the same keys give it on the other layout of the keyboard: see onOtherLayout().
    static WantedWords onEitherLayout(const QString& search);

    /// @param letters those of the text
    bool areIn(QStringView searchText, Letters letters) const;
    bool areIn(QStringView searchText) const { return areIn(searchText, lettersOf(searchText)); }

private:
    struct Word {
        QString typed;
        QString otherwise; ///< empty: it is found as typed only
        Letters letters = 0;
        Letters otherLetters = 0;

        bool isIn(QStringView searchText, Letters textLetters) const;
    };

    void add(const QString& typed, const QString& otherwise);

    QList<Word> m_words;
};
