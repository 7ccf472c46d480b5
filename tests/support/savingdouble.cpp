// SPDX-License-Identifier: MIT
#include "savingdouble.h"

class SavingDouble::Logic : public SaveToFileLogic
{
public:
    explicit Logic(SavingDouble& owner)
        : m_owner(owner)
    {
    }

    bool save(const QSharedPointer<AbstractDocument>& document, const QString& file) override
    {
        if (document) {
            m_owner.files.append(document->fileName());
        }
        const Write write = [&] { return SaveToFileLogic::save(document, file); };
        return m_owner.onSave ? m_owner.onSave(document, file, write) : write();
    }

private:
    SavingDouble& m_owner;
};

SavingDouble::SavingDouble()
    : m_mocked([this] { return QSharedPointer<Logic>::create(*this); })
{
}

void SavingDouble::failAll()
{
    onSave = [](const auto&, const auto&, const auto&) { return false; };
}
