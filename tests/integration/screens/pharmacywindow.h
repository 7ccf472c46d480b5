// SPDX-License-Identifier: MIT
#pragma once

#include "cashierslanguage.h"
#include "dispensechoiceformcreator.h"
#include "electronicprescriptionformcreator.h"
#include "styledscreen.h"
#include "windowfixture.h"

#include <QTest>

#include <optional>

/// The register's window with the forms, marks and texts of both plug-ins, in a size, a mode and a language.
class PharmacyWindow : public WindowFixture
{
protected:
    PharmacyWindow(QSize size, bool isTouch, const char* language)
        : m_size(size)
        , m_language(language, {u":/translations/registerplatform"_s, u":/translations/pharmacyregister"_s,
                                plugins + u"/electronicprescription/electronicprescription"_s,
                                plugins + u"/dispenserecovery/dispenserecovery"_s})
    {
        config.set(u"GUI:touchMode"_s, isTouch ? u"true"_s : u"false"_s);
        config.set(u"GUI:layouts"_s, sources + u"/plugin/dialogs:"_s + sources + u"/recovery/dialogs"_s);
        config.set(u"Register:currency"_s, u"BYN"_s);
        gui.object.addFormCreator(QSharedPointer<ElectronicPrescriptionFormCreator>::create());
        gui.object.addFormCreator(QSharedPointer<DispenseChoiceFormCreator>::create());
        for (const char* plugin : {"/plugin", "/recovery"}) {
            marks.load(sources + QLatin1StringView(plugin) + u"/positionmarks.json"_s);
        }
        m_styled.emplace(size);
    }

    /// @param unlockCode empty: any key unlocks
    void openSized(const QString& unlockCode = {})
    {
        openWindow(unlockCode);
        window->resize(m_size);
        ASSERT_TRUE(QTest::qWaitFor([this] { return window->size() == m_size; }));
        QApplication::processEvents();
    }

    static inline const QString sources = QString::fromUtf8(SOURCES);
    static inline const QString plugins = QString::fromUtf8(PLUGINS);

private:
    const QSize m_size;
    const CashiersLanguage m_language;
    std::optional<StyledScreen> m_styled; ///< made when the mode is configured
};
