// SPDX-License-Identifier: MIT
#include "basicdialog.h"

#include "basicexception.h"
#include "graphicaluserinterface.h"

#include <QWidget>

using namespace Qt::StringLiterals;

namespace core
{

BasicDialog::BasicDialog(QObject* parent)
    : QObject(parent)
{
}

BasicDialog::~BasicDialog() = default;

// By value, because plug-ins override this signature in their test doubles.
BasicDialog::Result BasicDialog::show(bool overPayment, bool silent, QFlags<EInput::Source> sources,
                                      Event event) // NOLINT(performance-unnecessary-value-param)
{
    GraphicalUserInterface& gui = *Singleton<GraphicalUserInterface>::get();
    const QSharedPointer<BasicForm> form = gui.createForm(event);
    if (!form) {
        throw BasicException(
            tr::Tr(u"formUnknownError"_s,
                   u"Нет формы для события %1.\nОбратитесь к администратору: проверить нужно модули кассы."_s)
                .arg(QString::number(event.getCode())));
    }
    if (QWidget* root = form->rootWidget()) {
        root->setProperty("overPayment", overPayment);
        root->setProperty("silent", silent);
        root->setProperty("inputSources", sources.toInt());
    }
    return gui.run(form);
}

} // namespace core
