// SPDX-License-Identifier: MIT
#include "registrydate.h"

namespace
{

constexpr int notANumber = -1;

/// Takes ASCII digits only, not those of other scripts.
int readNumber(QStringView digits)
{
    int number = 0;
    for (const QChar character : digits) {
        const int digit = character.unicode() - u'0';
        if (digit < 0 || digit > 9) {
            return notANumber;
        }
        number = number * 10 + digit;
    }
    return number;
}

} // namespace

QDate readRegistryDate(QStringView text)
{
    const bool beforeChrist = text.startsWith(u'-');
    if (beforeChrist) {
        text = text.mid(1);
    }
    if (text.size() != 10 || text[4] != u'-' || text[7] != u'-') {
        return {};
    }

    const int year = readNumber(text.mid(0, 4));
    const int month = readNumber(text.mid(5, 2));
    const int day = readNumber(text.mid(8, 2));
    if (year == notANumber || month == notANumber || day == notANumber) {
        return {};
    }
    return {beforeChrist ? -year : year, month, day};
}
