// SPDX-License-Identifier: MIT
#pragma once

#include <QUiLoader>

/// Reads .ui layouts that use the register's own widget classes.
class LayoutLoader : public QUiLoader
{
public:
    using QUiLoader::QUiLoader;

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;
};
