// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "mockfactory.h"

#include <QDateTime>

class CurrentTime;
extern template struct REGISTERPLATFORM_EXPORT MockFactory<CurrentTime>;

/// The time of day, as an object that a test can replace.
class REGISTERPLATFORM_EXPORT CurrentTime : public MockFactory<CurrentTime>
{
public:
    CurrentTime() = default;
    virtual ~CurrentTime();
    Q_DISABLE_COPY_MOVE(CurrentTime)

    /// Now, in local time.
    virtual QDateTime current() const;
};
