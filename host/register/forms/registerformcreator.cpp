// SPDX-License-Identifier: MIT
#include "registerformcreator.h"

#include "askform.h"
#include "documentlistform.h"
#include "goodsselectionform.h"
#include "helpform.h"
#include "menuform.h"
#include "questionform.h"
#include "returnform.h"

namespace
{

/// The form for its event, which carries the form's parameters as "params"; null for any other event.
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
        formOf<HelpForm, HelpParams>,
        formOf<MenuForm, MenuParams>,
        formOf<QuestionForm, Question>,
        formOf<ReturnForm, ReturnParams>,
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
