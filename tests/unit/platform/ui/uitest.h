// SPDX-License-Identifier: MIT
#pragma once

#include "basicform.h"
#include "configured.h"
#include "graphicaluserinterface.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

/// A test with a configuration, a GUI and a folder of layouts of its own.
class UiTest : public ::testing::Test
{
protected:
    UiTest() { config.setForThisRun(u"GUI:layouts"_s, layouts.path()); }

    void setTouchMode() { config.setForThisRun(u"GUI:touchMode"_s, u"true"_s); }

    /// Writes a layout with these widgets and returns its name.
    QString writeLayout(const QString& name, const QString& widgets, const QString& rootProperties = {})
    {
        return writeFile(name, "<ui version=\"4.0\"><widget class=\"QWidget\" name=\"root\">" + rootProperties +
                                   "<layout class=\"QVBoxLayout\">" + widgets + "</layout></widget></ui>");
    }

    QString writeFile(const QString& name, const QString& content)
    {
        QFile file(layouts.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content.toUtf8());
        return name;
    }

    static QString widget(const QString& className, const QString& name, const QString& properties = {})
    {
        return "<item><widget class=\"" + className + "\" name=\"" + name + "\">" + properties + "</widget></item>";
    }

    /// Runs `steps` when another form is on top.
    void whenShown(std::function<void()> steps)
    {
        auto* poll = new QTimer(qApp);
        QObject::connect(poll, &QTimer::timeout, [this, poll, before = gui.topForm(), steps = std::move(steps)] {
            const QSharedPointer<BasicForm> top = gui.topForm();
            if (!top || top == before) {
                return;
            }
            poll->stop();
            poll->deleteLater();
            steps();
        });
        poll->start();
    }

    static control::Action answerOf(const QString& key, const QVariant& value)
    {
        control::Action action(control::DialogAnswer);
        action.insert(key, value);
        return action;
    }

    Configured config;
    GraphicalUserInterface gui;
    QTemporaryDir layouts;

private:
    InPlace<GraphicalUserInterface> m_guiInPlace{&gui};
};

/// A form of a layout, with the protected operations that plug-in forms use.
class LayoutForm : public BasicForm
{
public:
    explicit LayoutForm(const QString& layout)
        : BasicForm(nullptr)
    {
        loadUI(layout);
    }
    using BasicForm::deleteWidgets;
    using BasicForm::findUIError;
    using BasicForm::findWidget;
    using BasicForm::findWidgets;
    using BasicForm::loadUI;
    using BasicForm::setAccessibleNames;
    using BasicForm::setContextCode;
    using BasicForm::showText;
};
