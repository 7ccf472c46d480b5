// SPDX-License-Identifier: MIT
#include "functionkeybar.h"

#include "shownkey.h"

#include <QEvent>
#include <QPushButton>
#include <QShortcut>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace
{

constexpr int spaceBetweenKeys = 8;

int widthOf(const QList<QPushButton*>& row)
{
    return std::accumulate(row.cbegin(), row.cend(), spaceBetweenKeys * int(row.size() - 1),
                           [](int width, const QPushButton* key) { return width + key->sizeHint().width(); });
}

/// Places the keys of a row from its left to its right edge, and shares out the spare width among them.
void place(const QList<QPushButton*>& row, const QRect& room)
{
    int left = room.left();
    int spare = room.width() - widthOf(row);
    auto keysLeft = int(row.size());
    for (QPushButton* key : row) {
        const int share = spare / keysLeft--;
        const int width = key->sizeHint().width() + share;
        key->setGeometry(left, room.top(), width, room.height());
        spare -= share;
        left += width + spaceBetweenKeys;
    }
}

} // namespace

FunctionKeyBar::FunctionKeyBar(const QList<FunctionKey>& keys, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(u"functionKeyBar"_s);
    // Narrower than other buttons, so that all keys fit into one row where possible.
    setStyleSheet(u"QPushButton { padding: 6px 7px } QPushButton:focus { padding: 4px 5px }"_s);
    // With a fixed height, a layout would keep to that of one row.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    for (const FunctionKey& key : keys) {
        addKey(key);
    }
}

void FunctionKeyBar::addKey(const FunctionKey& key)
{
    const QString shortcut = shownKey(key.shortcut);
    auto* button = new QPushButton(shortcut.isEmpty() ? key.text : shortcut + u'\n' + key.text, this);
    button->setObjectName(key.name);
    button->setAccessibleName(key.text);
    button->setToolTip(key.text);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus); // after a click, the focus stays where the next scan is expected
    connect(button, &QPushButton::clicked, this, [this, key] { emit pressed(key); });
    if (!key.shortcut.isEmpty()) {
        auto* pressedKey = new QShortcut(key.shortcut, this);
        pressedKey->setAutoRepeat(false);
        connect(pressedKey, &QShortcut::activated, this, [this, key] { emit pressed(key); });
    }
    m_keys.append(button);
}

int FunctionKeyBar::heightForWidth(int width) const
{
    const auto count = int(rows(width).size());
    return count * keyHeight() + std::max(0, count - 1) * spaceBetweenKeys;
}

QSize FunctionKeyBar::sizeHint() const
{
    return {m_keys.isEmpty() ? 0 : widthOf(m_keys), keyHeight()};
}

QSize FunctionKeyBar::minimumSizeHint() const
{
    return {0, keyHeight()};
}

bool FunctionKeyBar::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) { // the text of a key has another width
        updateGeometry();
        arrange();
    }
    return QWidget::event(event);
}

void FunctionKeyBar::resizeEvent(QResizeEvent*)
{
    arrange();
}

/// As few rows as the keys fit into. When a key is wider than `width`, every key has a row of its own.
QList<FunctionKeyBar::Row> FunctionKeyBar::rows(int width) const
{
    const auto keys = int(m_keys.size());
    for (int count = 1; count < keys; ++count) {
        QList<Row> split = inRows(count);
        if (std::all_of(split.cbegin(), split.cend(), [width](const Row& row) { return widthOf(row) <= width; })) {
            return split;
        }
    }
    return inRows(keys);
}

/// The keys in their order, about the same number in each row.
QList<FunctionKeyBar::Row> FunctionKeyBar::inRows(int count) const
{
    QList<Row> split;
    qsizetype first = 0;
    for (int row = 0; row < count; ++row) {
        const qsizetype size = (m_keys.size() - first + count - row - 1) / (count - row);
        split.append(m_keys.mid(first, size));
        first += size;
    }
    return split;
}

int FunctionKeyBar::keyHeight() const
{
    return std::accumulate(m_keys.cbegin(), m_keys.cend(), 0, [](int height, const QPushButton* key) {
        return std::max(height, key->sizeHint().height());
    });
}

void FunctionKeyBar::arrange()
{
    int top = 0;
    for (const Row& row : rows(width())) {
        place(row, {0, top, width(), keyHeight()});
        top += keyHeight() + spaceBetweenKeys;
    }
}
