// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"

#include <QUiLoader>

/// Reads .ui layouts that use the register's own widget classes.
class LayoutLoader : public QUiLoader
{
public:
    using QUiLoader::QUiLoader;

    QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override;
};

/// The widgets of a layout; the caller owns them.
/// @param path of the .ui file; empty: there is none, which is a failure like any other
/// @param name of the layout, for the failure when there is no path
Expected<QWidget*> loadLayout(const QString& path, const QString& name);
