// SPDX-License-Identifier: MIT
#pragma once

#include "econtext.h"
#include "export.h"
#include "formhelp.h"
#include "tr.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <utility>

/// A form: a tree of widgets from a .ui layout, and the code that fills it and answers.
///
/// Owner: the GUI, through a shared pointer, until the slot that answered has returned. The form owns its widgets.
/// Main thread.
class REGISTERPLATFORM_EXPORT BasicForm : public QObject
{
    Q_OBJECT

public:
    explicit BasicForm(QObject* parent);
    ~BasicForm() override;

    /// Makes the form ready for input. The GUI calls it when the root widget is in the window.
    ///
    /// The focus goes where the next key is expected: to the widget that the layout's dynamic property "initialFocus"
    /// names, else to the default button, else to the first widget that takes focus.
    ///
    /// In a form without a table, Up, Down, PageUp, PageDown, Home and End scroll its first scroll area, wherever the
    /// focus is, while there is something to scroll. In touch mode the scroll buttons move the form's table, and
    /// scroll areas follow the finger.
    virtual void show();

    /// The root of the widget tree; null before loadUI().
    QWidget* rootWidget() const { return m_root; }
    /// The context of the register while this form is on top; DialogOnTop unless the form says otherwise.
    EContext::Code contextCode() const { return m_contextCode; }

    /// What the help says of this form; empty unless the form says something.
    const FormHelp& help() const { return m_help; }

    /// True when the form was shown with EInput::Scanner among its sources.
    bool expectsScans() const;

    /// "GUI:touchMode" of the configuration.
    static bool isTouchMode();

    /// The path of a layout: the first entry of that name in the folders of "GUI:layouts" (separated by ':'), else the
    /// platform's own; empty when there is none.
    static QString layoutPath(const QString& name);

    /// For the host or a test: what findUIError() calls instead of throwing; empty: it throws.
    static void setUIErrorHandler(std::function<void(const tr::Tr&)> handler);

signals:
    /// The form ended without an answer of its own: its window was closed, or no filter took an Esc.
    void dismissed();

protected:
    void setContextCode(EContext::Code code) { m_contextCode = code; }
    void setHelp(const FormHelp& help) { m_help = help; }

    /// Builds the widget tree from a layout file, for example "message.ui", and names its scroll buttons for screen
    /// readers. A file that is missing or cannot be read
    /// is reported through findUIError(). The root is then an empty widget, so that look-ups find nothing.
    void loadUI(const QString& name);

    /// Deletes the named widgets, in that order. A name without a widget is passed over.
    void deleteWidgets(const QStringList& names);

    /// Names controls for screen readers, each by its object name. Controls that the layout or the mode lacks are
    /// passed over.
    void setAccessibleNames(const QList<std::pair<QString, tr::Tr>>& names);

    /// Shows a text in the QLabel of that name, always as plain text: a text from a server is never read as markup,
    /// whatever the layout says.
    void showText(const QString& label, const QString& text, bool required = true);

    /// The widgets of that object name below `root` (and `root` itself); null: below the form's root.
    /// @param visibleOnly passes hidden ones over
    QList<QWidget*> findWidgets(const QString& name, bool visibleOnly, QWidget* root = nullptr) const;

    /// The first widget of that name, as a `T`. Null when there is none, or when it is not a `T`.
    ///
    /// The widget is remembered. A required one that is missing is reported through findUIError() at every look-up; a
    /// required one of another class at the look-up that finds it, and not again.
    template <typename T>
    T* findWidget(const QString& name, bool required = true)
    {
        if (QWidget* known = m_found.value(name)) {
            return qobject_cast<T*>(known);
        }
        QWidget* found = lookUp(name, required);
        T* typed = qobject_cast<T*>(found);
        if (found && !typed && required) {
            reportCast(name, *found, T::staticMetaObject.className());
        }
        return typed;
    }

    /// Reports a fault of a layout: throws BasicException unless a handler is set.
    void findUIError(const tr::Tr& error) const;

private:
    void prepareScrollKeys();
    void prepareTouch();
    void nameScrollButtons();
    /// Finds a widget that is not remembered yet, and remembers it.
    QWidget* lookUp(const QString& name, bool required);
    void reportCast(const QString& name, const QWidget& found, const char* wanted) const;

    QPointer<QWidget> m_root;
    QHash<QString, QPointer<QWidget>> m_found; ///< by object name
    FormHelp m_help;
    EContext::Code m_contextCode = EContext::DialogOnTop;
    bool m_isPrepared = false; ///< for keys and touch, at the first show()
};
