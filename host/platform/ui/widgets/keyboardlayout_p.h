// SPDX-License-Identifier: MIT
#pragma once

#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QStringList>

/// One layout of the touch keyboard.
struct KeyboardLayout {
    QString name;    ///< as configurations name it: "ru"
    QString caption; ///< on the key that switches to it
    /// Rows of keys, separated by blanks. A key of one character writes it; the others are commands.
    QStringList rows;
    /// True: all keys of a row have one width. False: the commands are wider.
    bool isEven;

    /// The commands.
    static constexpr QLatin1StringView backspace{"backspace"};
    static constexpr QLatin1StringView enter{"enter"};
    static constexpr QLatin1StringView shift{"shift"};
    static constexpr QLatin1StringView space{"space"};
    static constexpr QLatin1StringView next{"layout"};

    /// True when a key writes the character, alone or after the shift key.
    bool canType(QChar character) const;

    /// Null when there is no layout of that name.
    static const KeyboardLayout* find(const QString& name);
};
