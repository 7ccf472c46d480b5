// SPDX-License-Identifier: MIT
#pragma once

#include "export.h"
#include "singleton.h"

#include <QtGlobal>

class AbstractDocument;

/// What the register adds to each document just before it is saved, by itself or by a plug-in. Main thread.
class REGISTERPLATFORM_EXPORT BeforeSaving
{
public:
    BeforeSaving() = default;
    virtual ~BeforeSaving();
    Q_DISABLE_COPY_MOVE(BeforeSaving)

    /// Adds nothing.
    virtual void complete(AbstractDocument& document);
};

extern template struct REGISTERPLATFORM_EXPORT Singleton<BeforeSaving>;
