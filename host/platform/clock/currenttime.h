// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "mockfactory.h"

#include <QDateTime>

class CurrentTime;
extern template struct REGISTERPLATFORM_EXPORT MockFactory<CurrentTime>;

/// The clock on the wall, as an object that a test can replace.
class REGISTERPLATFORM_EXPORT CurrentTime : public MockFactory<CurrentTime>
{
public:
    CurrentTime() = default;
    virtual ~CurrentTime();
    CurrentTime(const CurrentTime&) = delete;
    CurrentTime& operator=(const CurrentTime&) = delete;

    /// Now, in local time.
    virtual QDateTime current() const;
};
