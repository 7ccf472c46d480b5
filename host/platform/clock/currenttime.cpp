// SPDX-License-Identifier: MIT
#include "currenttime.h"

template struct MockFactory<CurrentTime>;

CurrentTime::~CurrentTime() = default;

QDateTime CurrentTime::current() const
{
    return QDateTime::currentDateTime();
}
