// SPDX-License-Identifier: MIT
#pragma once

#include "savetofilelogic.h"

#include <QStringList>

#include <functional>

/// Sees every document that is saved while it lives, and can have saving fail.
class Saves
{
public:
    Saves()
    {
        MockFactory<SaveToFileLogic>::mocked = [this] { return QSharedPointer<Logic>::create(*this); };
    }
    ~Saves() { MockFactory<SaveToFileLogic>::mocked = nullptr; }
    Saves(const Saves&) = delete;
    Saves& operator=(const Saves&) = delete;

    /// What becomes of saving a document; the disk is not asked when it fails before.
    enum class Fault { None, Before, After };
    using Faults = std::function<Fault(const AbstractDocument&)>;

    /// @param faults asked for each document that is saved from now on
    void fail(const Faults& faults) { m_faults = faults; }
    /// Every save fails from now on, or none.
    void failAll(bool all = true)
    {
        m_faults = [all](const AbstractDocument&) { return all ? Fault::Before : Fault::None; };
    }

    /// The files that were saved, in order, the failed ones too.
    QStringList files;

private:
    class Logic : public SaveToFileLogic
    {
    public:
        explicit Logic(Saves& saves)
            : m_saves(saves)
        {
        }
        bool save(const QSharedPointer<AbstractDocument>& document, const QString& file) override
        {
            m_saves.files.append(document->fileName());
            const Fault fault = m_saves.m_faults ? m_saves.m_faults(*document) : Fault::None;
            return fault != Fault::Before && SaveToFileLogic::save(document, file) && fault != Fault::After;
        }

    private:
        Saves& m_saves;
    };

    Faults m_faults;
};
