// SPDX-License-Identifier: MIT
#include "functionkeybar.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

FunctionKeyBar::FunctionKeyBar(const QList<FunctionKey>& keys, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("functionKeyBar"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    for (const FunctionKey& key : keys) {
        const QString shortcut = key.shortcut.toString(QKeySequence::NativeText);
        auto* button = new QPushButton(shortcut.isEmpty() ? key.text : shortcut + QLatin1Char('\n') + key.text, this);
        button->setObjectName(key.name);
        button->setAccessibleName(key.text);
        button->setToolTip(key.text);
        button->setAutoDefault(false);
        button->setFocusPolicy(Qt::TabFocus); // a click leaves the focus where the next scan is expected
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        connect(button, &QPushButton::clicked, this, [this, key] { emit pressed(key); });
        if (!key.shortcut.isEmpty()) {
            auto* pressedKey = new QShortcut(key.shortcut, this);
            pressedKey->setAutoRepeat(false);
            connect(pressedKey, &QShortcut::activated, this, [this, key] { emit pressed(key); });
        }
        layout->addWidget(button);
    }
}
