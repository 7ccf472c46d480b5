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

Expected<QWidget*> loadLayout(const QString& path, const QString& name)
{
    const auto failure = [](const QString& file, const QString& reason) {
        const tr::Tr text(
            u"formUiLoadError"_s,
            u"Не удалось загрузить форму «%1»: %2\nОбратитесь к администратору: проверить нужно папки форм в "
            "настройках."_s);
        return Failure{text.arg(file).arg(reason), u"The layout %1 cannot be read: %2"_s.arg(file, reason)};
    };
    if (path.isEmpty()) {
        return failure(name, tr::Tr(u"formUiMissing"_s, u"файла нет"_s).ui());
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return failure(path, file.errorString());
    }
    LayoutLoader loader;
    if (QWidget* widgets = loader.load(&file)) {
        return widgets;
    }
    return failure(path, loader.errorString());
}
