// SPDX-License-Identifier: MIT
#pragma once

#include "econtext.h"
#include "export.h"
#include "tr.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <utility>

/// A form: a tree of widgets from a .ui layout, with the code that fills it and answers.
///
/// Owner: the GUI, through a shared pointer, until the slot that answered has returned. The form owns its widgets.
class REGISTERPLATFORM_EXPORT BasicForm : public QObject
{
    Q_OBJECT

public:
    explicit BasicForm(QObject* parent);
    ~BasicForm() override;

    /// Makes the form ready for input; called by the GUI once the root widget stands in the window. Puts the focus
    /// where the next key is expected: on the widget that the layout's dynamic property "initialFocus" names, else on
    /// the default button, else on the first widget that takes focus. In touch mode it also wires the scroll buttons
    /// to the form's table and lets scroll areas follow the finger.
    virtual void show();

    /// The root of the widget tree; null before loadUI().
    QWidget* rootWidget() const { return m_root; }
    /// The context of the register while this form is on top; DialogOnTop unless the form says otherwise.
    EContext::Code contextCode() const { return m_contextCode; }

    /// The form was shown with EInput::Scanner among its sources.
    bool expectsScans() const;

    /// "GUI:touchMode" of the configuration.
    static bool isTouchMode();

    /// The path of a layout: the first entry of that name in the folders of "GUI:layouts" (separated by ':', the
    /// integrator's own first), else the platform's own; empty when there is none.
    static QString layoutPath(const QString& name);

    /// For the host or a test: what findUIError() does instead of throwing; empty: it throws.
    static void setUIErrorHandler(std::function<void(const tr::Tr&)> handler);

signals:
    /// The form was closed without an answer of its own: its window was closed, or Esc pressed, and nobody took it.
    void dismissed();

protected:
    void setContextCode(EContext::Code code) { m_contextCode = code; }

    /// Builds the widget tree from a layout file, for example "message.ui". A file that is missing or cannot be read
    /// is reported through findUIError(); the root is then an empty widget, so that look-ups find nothing.
    void loadUI(const QString& name);

    /// Deletes the named widgets, in that order; a name without a widget is passed over.
    void deleteWidgets(const QStringList& names);

    /// Gives controls, each by its object name, the name that a screen reader tells; those that the layout or the mode
    /// lacks are passed over.
    void setAccessibleNames(const QList<std::pair<QString, tr::Tr>>& names);

    /// The widgets of that object name below `root` (and `root` itself); null: below the form's root.
    /// @param visibleOnly passes hidden ones over
    QList<QWidget*> findWidgets(const QString& name, bool visibleOnly, QWidget* root = nullptr) const;

    /// The widget of that name as a `T`, found once and remembered. A required one that is missing, or of another
    /// class, is reported through findUIError(). Null when there is no such widget (any more).
    template <typename T>
    T* findWidget(const QString& name, bool required = true)
    {
        QWidget* widget = lookUp(name, required);
        T* typed = qobject_cast<T*>(widget);
        if (widget && !typed && required) {
            reportCast(name, widget, T::staticMetaObject.className());
        }
        return typed;
    }

    /// Reports a fault of a layout: throws BasicException unless a handler is set.
    void findUIError(const tr::Tr& error) const;

private:
    void prepareTouch();
    QWidget* lookUp(const QString& name, bool required);
    void reportCast(const QString& name, const QWidget* found, const char* wanted) const;

    QPointer<QWidget> m_root;
    QHash<QString, QPointer<QWidget>> m_found;
    EContext::Code m_contextCode = EContext::DialogOnTop;
    bool m_touchPrepared = false;
};
