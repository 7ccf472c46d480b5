// SPDX-License-Identifier: MIT
#include "basicdialogform.h"

#include "dialogshade_p.h"
#include "registerstyle.h"

#include <QLabel>
#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace
{

/// Every form fits this screen.
constexpr QSize smallestScreen(1024, 600);

/// The room that the style sheet takes around the contents, on both sides together. QFrame::frameWidth() lacks it.
QSize borderOf(const QScrollArea& area)
{
    QStyleOptionFrame option;
    option.initFrom(&area);
    option.rect = QRect(0, 0, 1000, 1000);
    return option.rect.size() - area.style()->subElementRect(QStyle::SE_ShapedFrameContents, &option, &area).size();
}

} // namespace

BasicDialogForm::BasicDialogForm(QObject* parent)
    : BasicForm(parent)
{
}

void BasicDialogForm::show()
{
    if (QWidget* root = rootWidget()) {
        setCustomProperty(u"dialogForm"_s, true);
        if (root->isWindow()) {
            root->setMaximumSize(smallestScreen);
            if (root->layout()) {
                root->layout()->activate();
            }
            root->resize(root->sizeHint().boundedTo(smallestScreen));
        } else if (isModalDialog()) {
            new DialogShade(*root);
        }
    }
    BasicForm::show();
}

void BasicDialogForm::close()
{
    if (QWidget* root = rootWidget()) {
        root->close();
    }
}

bool BasicDialogForm::isModalDialog() const
{
    return true;
}

void BasicDialogForm::setCustomProperty(const QString& name, const QVariant& value)
{
    if (QWidget* root = rootWidget()) {
        setStyleProperty(*root, name, value);
    }
}

void BasicDialogForm::setTitle(const QString& title)
{
    showText(u"titleLabel"_s, title, false);
    if (QWidget* root = rootWidget()) {
        root->setWindowTitle(title);
    }
}

void BasicDialogForm::fitMessage(int tallest)
{
    auto* area = findWidget<QScrollArea>(u"messageScrollArea"_s, false);
    auto* label = findWidget<QLabel>(u"messageLabel"_s, false);
    if (!area || !label) {
        return;
    }
    label->ensurePolished();
    area->ensurePolished();
    const QSize text = label->sizeHint() + borderOf(*area);
    const bool scrolls = text.height() > tallest;
    // By default the area keeps the bar that it needed while it was narrower, and beside the bar the text needs one
    // more line.
    area->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    area->setMinimumWidth(text.width() + (scrolls ? area->verticalScrollBar()->sizeHint().width() : 0));
    area->setFixedHeight(qMin(text.height(), tallest));
}
