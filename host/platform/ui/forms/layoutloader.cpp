// SPDX-License-Identifier: MIT
#include "layoutloader_p.h"

#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"
#include "wrappedlabel.h"

namespace
{

template <typename T>
bool isNamed(const QString& className)
{
    return className == QLatin1StringView(T::staticMetaObject.className());
}

QWidget* createOwnWidget(const QString& className, QWidget* parent)
{
    if (isNamed<TalloTableView>(className)) {
        return new TalloTableView(parent);
    }
    if (isNamed<TalloLineEdit>(className)) {
        return new TalloLineEdit(parent);
    }
    if (isNamed<TalloKeyboard>(className)) {
        return new TalloKeyboard(parent);
    }
    if (isNamed<WrappedLabel>(className)) {
        return new WrappedLabel(parent);
    }
    return nullptr;
}

} // namespace

QWidget* LayoutLoader::createWidget(const QString& className, QWidget* parent, const QString& name)
{
    QWidget* widget = createOwnWidget(className, parent);
    if (!widget) {
        return QUiLoader::createWidget(className, parent, name);
    }
    widget->setObjectName(name);
    return widget;
}
