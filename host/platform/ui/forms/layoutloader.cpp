// SPDX-License-Identifier: MIT
#include "layoutloader_p.h"

#include "tallokeyboard.h"
#include "tallolineedit.h"
#include "tallotableview.h"
#include "wrappedlabel.h"

#include <QFile>

using namespace Qt::StringLiterals;

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

Expected<QWidget*> loadLayout(const QString& path)
{
    if (path.isEmpty()) {
        return Failure{tr::Tr(u"formUiMissing"_s, u"файла нет"_s), u"no such file"_s};
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return Failure{tr::Tr(tr::undefined, file.errorString()), path + u": "_s + file.errorString()};
    }
    LayoutLoader loader;
    QWidget* root = loader.load(&file);
    if (!root) {
        return Failure{tr::Tr(tr::undefined, loader.errorString()), path + u": "_s + loader.errorString()};
    }
    return root;
}
