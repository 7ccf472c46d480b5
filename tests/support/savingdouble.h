// SPDX-License-Identifier: MIT
#pragma once

#include "mocked.h"
#include "savetofilelogic.h"

#include <QStringList>

#include <functional>

/// Takes the place of the register's saving for as long as it lives. At first it saves as the register does.
class SavingDouble
{
public:
    /// Saves the document as the register does; false when that failed.
    using Write = std::function<bool()>;
    /// @param file as SaveToFileLogic::save() gets it
    /// @return whether the document counts as saved
    using OnSave =
        std::function<bool(const QSharedPointer<AbstractDocument>& document, const QString& file, const Write& write)>;

    SavingDouble();

    /// No document is saved from now on, and none is written.
    void failAll();

    /// Decides about each document that is to be saved, which may be null; empty: it is written.
    OnSave onSave;
    /// The files of the documents that were to be saved, in order, the failed ones too.
    QStringList files;

private:
    class Logic;

    Mocked<SaveToFileLogic> m_mocked;
};
