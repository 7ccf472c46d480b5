// SPDX-License-Identifier: MIT
#include "scanguard_p.h"

#include "config.h"
#include "einput.h"
#include "graphicaluserinterface.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

namespace
{

QString scannerSetting(const char* key)
{
    return Singleton<Config>::get()->getString(QLatin1String("Scanner:") + QLatin1String(key));
}

bool isScannerExpected(const QWidget& root)
{
    return QFlags<EInput::Source>::fromInt(root.property("inputSources").toInt()).testFlag(EInput::Scanner);
}

} // namespace

ScanGuard::ScanGuard(const GraphicalUserInterface& gui)
    : m_gui(gui)
    , m_recognizer(scannerSetting("prefix"), scannerSetting("suffix"))
{
    qApp->installEventFilter(this);
}

bool ScanGuard::eventFilter(QObject* watched, QEvent* event)
{
    return event->type() == QEvent::KeyPress && watched->isWindowType() &&
           endsUnexpectedScan(*static_cast<QKeyEvent*>(event));
}

bool ScanGuard::endsUnexpectedScan(const QKeyEvent& key)
{
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        return m_recognizer.finish(key.timestamp()) && !expectsScan();
    m_recognizer.key(key, {});
    return false;
}

bool ScanGuard::expectsScan() const
{
    const QSharedPointer<BasicForm> form = m_gui.topForm();
    if (!form || !form->rootWidget())
        return true;
    const QWidget* focus = QApplication::focusWidget();
    if (qobject_cast<const QAbstractButton*>(focus))
        return false;
    return (focus && focus->property(recognizesScans).toBool()) || isScannerExpected(*form->rootWidget());
}
