// SPDX-License-Identifier: MIT
#include "tallokeyboard.h"

#include "keyboardlayout_p.h"
#include "tr.h"

#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

#include <log4qt/logger.h>
#include <log4qt/logmanager.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int keySize = 44;
constexpr int keySpacing = 8;

/// A command key: its caption, its name for screen readers, and the key event that it sends.
struct CommandKey {
    QString command;
    QString caption;
    tr::Tr name;
    Qt::Key key;
    QString text;
    int stretch;
};

const CommandKey* findCommand(const QString& command)
{
    static const QList<CommandKey> commands{
        {KeyboardLayout::backspace,
         u"⌫"_s,
         {u"keyboardBackspace"_s, u"Стереть символ"_s},
         Qt::Key_Backspace,
         u"\b"_s,
         2},
        {KeyboardLayout::enter, u"⏎"_s, {u"keyboardEnter"_s, u"Ввод"_s}, Qt::Key_Return, u"\r"_s, 3},
        {KeyboardLayout::shift, u"⇧"_s, {u"keyboardShift"_s, u"Заглавные буквы"_s}, Qt::Key_Shift, {}, 2},
        {KeyboardLayout::space, {}, {u"keyboardSpace"_s, u"Пробел"_s}, Qt::Key_Space, u" "_s, 8},
        {KeyboardLayout::next, {}, {u"keyboardLayout"_s, u"Сменить раскладку"_s}, Qt::Key_unknown, {}, 3},
    };
    for (const CommandKey& known : commands) {
        if (known.command == command) {
            return &known;
        }
    }
    return nullptr;
}

/// The layouts of a configured list; an unknown one is logged and left out.
QList<const KeyboardLayout*> findLayouts(const QString& names)
{
    QList<const KeyboardLayout*> known;
    for (const QString& item : names.split(u',', Qt::SkipEmptyParts)) {
        const QString name = item.trimmed();
        if (const KeyboardLayout* layout = KeyboardLayout::find(name)) {
            known.append(layout);
        } else {
            Log4Qt::LogManager::logger(u"gui"_s)->warn(u"The keyboard has no layout "_s + name);
        }
    }
    return known;
}

/// A caption on a button, where an ampersand alone marks a mnemonic.
QString captionOf(QString text)
{
    return text.replace(u'&', u"&&"_s);
}

} // namespace

class TalloKeyboard::Private
{
public:
    explicit Private(TalloKeyboard* owner)
        : m_owner(owner)
        , m_rows(new QVBoxLayout(owner))
    {
        m_rows->setContentsMargins(0, 0, 0, 0);
        m_rows->setSpacing(keySpacing);
    }

    void setLayouts(QList<const KeyboardLayout*> layouts)
    {
        m_layouts = std::move(layouts);
        m_current = 0;
        build();
    }

    QStringList layoutNames() const
    {
        QStringList names;
        for (const KeyboardLayout* layout : m_layouts) {
            names.append(layout->name);
        }
        return names;
    }

    QString currentLayout() const { return m_layouts[m_current]->name; }

private:
    void build()
    {
        m_shift = nullptr;
        m_letters.clear();
        // This may run in the click of one of these keys, so they are deleted later.
        while (QLayoutItem* item = m_rows->takeAt(0)) {
            item->widget()->hide();
            item->widget()->deleteLater();
            delete item;
        }
        for (const QString& keys : m_layouts[m_current]->rows) {
            QWidget* row = createRow(keys.split(u' '));
            m_rows->addWidget(row);
            row->show();
        }
    }

    QWidget* createRow(const QStringList& keys)
    {
        auto* row = new QWidget(m_owner);
        auto* line = new QHBoxLayout(row);
        line->setContentsMargins(0, 0, 0, 0);
        line->setSpacing(keySpacing);
        for (const QString& key : keys) {
            if (key == KeyboardLayout::next && m_layouts.size() < 2) {
                continue;
            }
            if (const CommandKey* command = findCommand(key)) {
                line->addWidget(createCommand(*command), m_layouts[m_current]->isEven ? 1 : command->stretch);
            } else {
                line->addWidget(createCharacter(key), 1);
            }
        }
        return row;
    }

    QPushButton* createKey(const QString& name, const QString& caption)
    {
        auto* key = new QPushButton(captionOf(caption));
        key->setObjectName(u"key_"_s + name);
        key->setAccessibleName(caption);
        key->setFocusPolicy(Qt::NoFocus);
        key->setMinimumSize(keySize, keySize);
        key->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        key->setProperty("keyboardKey", true);
        return key;
    }

    QPushButton* createCharacter(const QString& character)
    {
        QPushButton* key = createKey(character, character);
        m_letters.append(key);
        connect(key, &QPushButton::clicked, m_owner, [this, character] {
            const QString text = isShifted() ? character.toUpper() : character;
            releaseShift();
            // The key code of a letter is that of its capital, as in events of the window system.
            send(Qt::Key(character.toUpper().front().unicode()), text);
        });
        return key;
    }

    QPushButton* createCommand(const CommandKey& command)
    {
        QPushButton* key = createKey(command.command, command.caption);
        key->setAccessibleName(command.name.ui());
        if (command.command == KeyboardLayout::shift) {
            m_shift = key;
            key->setCheckable(true);
            connect(key, &QPushButton::toggled, m_owner, [this] { showCase(); });
        } else if (command.command == KeyboardLayout::next) {
            key->setText(nextLayout().caption);
            connect(key, &QPushButton::clicked, m_owner, [this] { switchLayout(); });
        } else {
            key->setAutoRepeat(command.command == KeyboardLayout::backspace);
            connect(key, &QPushButton::clicked, m_owner,
                    [this, code = command.key, text = command.text] { send(code, text); });
        }
        return key;
    }

    const KeyboardLayout& nextLayout() const { return *m_layouts[(m_current + 1) % m_layouts.size()]; }

    void switchLayout()
    {
        m_current = (m_current + 1) % m_layouts.size();
        build();
        QEvent change(QEvent::KeyboardLayoutChange);
        emit m_owner->layoutChanged(&change);
    }

    bool isShifted() const { return m_shift && m_shift->isChecked(); }

    void releaseShift()
    {
        if (m_shift) {
            m_shift->setChecked(false);
        }
    }

    void showCase()
    {
        for (QPushButton* key : std::as_const(m_letters)) {
            key->setText(isShifted() ? key->accessibleName().toUpper() : key->accessibleName());
        }
    }

    void send(Qt::Key key, const QString& text)
    {
        const QPointer<QWidget> receiver = m_owner->window()->focusWidget();
        if (!receiver) {
            return;
        }
        const QPointer<TalloKeyboard> owner = m_owner;
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(receiver, &press);
        if (receiver) {
            QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
            QCoreApplication::sendEvent(receiver, &release);
        }
        if (owner) {
            emit owner->keyPressed();
        }
    }

    TalloKeyboard* m_owner;
    QVBoxLayout* m_rows;
    QList<const KeyboardLayout*> m_layouts;
    qsizetype m_current = 0;
    QPushButton* m_shift = nullptr;
    QList<QPushButton*> m_letters;
};

TalloKeyboard::TalloKeyboard(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<Private>(this))
{
    setFocusPolicy(Qt::NoFocus);
    setAccessibleName(tr::Tr(u"keyboardName"_s, u"Экранная клавиатура"_s).ui());
    setKeyboardLayouts(u"en"_s);
}

TalloKeyboard::~TalloKeyboard() = default;

void TalloKeyboard::setKeyboardLayouts(const QString& layouts)
{
    QList<const KeyboardLayout*> known = findLayouts(layouts);
    if (known.isEmpty()) {
        known.append(KeyboardLayout::find(u"en"_s));
    }
    d->setLayouts(known);
}

bool TalloKeyboard::canType(const QString& text, const QString& layouts)
{
    const QList<const KeyboardLayout*> known = findLayouts(layouts);
    return std::all_of(text.cbegin(), text.cend(), [&known](QChar character) {
        return std::any_of(known.cbegin(), known.cend(),
                           [character](const KeyboardLayout* layout) { return layout->canType(character); });
    });
}

QStringList TalloKeyboard::keyboardLayouts() const
{
    return d->layoutNames();
}

QString TalloKeyboard::currentLayout() const
{
    return d->currentLayout();
}
