// SPDX-License-Identifier: MIT
#include "registerformcreator.h"

#include "askform.h"
#include "documentlistform.h"
#include "goodsselectionform.h"
#include "menuform.h"
#include "questionform.h"

namespace
{

/// The form, when the event is the one that asks for it; else null.
template <typename Form, typename Params>
QSharedPointer<BasicForm> formOf(const Event& event)
{
    if (event.getCode() != Params::eventCode) {
        return nullptr;
    }
    return QSharedPointer<Form>::create(formParams<Params>(event));
}

} // namespace

QSharedPointer<BasicForm> RegisterFormCreator::create(const Event& event)
{
    constexpr QSharedPointer<BasicForm> (*makers[])(const Event&) = {
        formOf<DocumentListForm, DocumentListParams>,
        formOf<GoodsSelectionForm, GoodsSelectionParams>,
        formOf<MenuForm, MenuParams>,
        formOf<QuestionForm, Question>,
    };
    for (const auto& make : makers) {
        if (QSharedPointer<BasicForm> form = make(event)) {
            return form;
        }
    }
    return nullptr;
}

QSharedPointer<BasicForm> RegisterFormCreator::create(EContext::Code)
{
    return nullptr;
}
