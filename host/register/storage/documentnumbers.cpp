// SPDX-License-Identifier: MIT
#include "documentnumbers.h"

#include "wholefile.h"

#include <QDir>
#include <QFile>

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace
{
const QString numberFile = u"lastreceiptnumber"_s;
} // namespace

DocumentNumbers::DocumentNumbers(const QString& folder)
    : m_folder(folder)
{
}

int DocumentNumbers::next()
{
    m_last = std::max(m_last, last()) + 1;
    setLast(m_last);
    return m_last;
}

void DocumentNumbers::pass(int number)
{
    m_last = std::max(m_last, number);
    if (number > last()) {
        setLast(number);
    }
}

int DocumentNumbers::last() const
{
    QFile file(QDir(m_folder).filePath(numberFile));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const int number = file.readAll().trimmed().toInt();
    return number > 0 && number < std::numeric_limits<int>::max() ? number : 0;
}

void DocumentNumbers::setLast(int number)
{
    const Expected<void> written = writeWholeFile(m_folder, numberFile, QByteArray::number(number));
    if (!written) {
        Log4Qt::LogManager::logger(u"register"_s)
            ->error(u"The last receipt number was not saved: "_s + written.failure().detail);
    }
}
