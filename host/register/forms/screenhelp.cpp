// SPDX-License-Identifier: MIT
#include "screenhelp.h"

#include "formkeys.h"

#include <QKeySequence>
#include <QList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

struct Screen {
    QString name;
    FormHelp help;
};

QString nameOf(Qt::Key key)
{
    return QKeySequence(key).toString(QKeySequence::NativeText);
}

/// The one table of the register's keys. The last screen stands for every other one.
QList<Screen> screens()
{
    const QString enter = FormHelp::enterKey();
    const QString arrows = FormHelp::arrowKeys();
    const QString esc = u"Esc"_s;
    const FormHelp::Key back{esc, {u"helpBack"_s, u"назад"_s}};
    const FormHelp::Key backToPositions{esc, {u"helpBackToPositions"_s, u"назад к позициям"_s}};
    const FormHelp::Key position{arrows, {u"helpPosition"_s, u"выбрать позицию"_s}};
    return {
        {u"idle"_s,
         {{{enter, {u"helpIdleEnter"_s, u"найти введённый товар и открыть чек"_s}}},
          {u"helpIdleNext"_s, u"Отсканируйте товар или введите его название, МНН или штрихкод: чек откроется сам."_s}}},
        {u"positions"_s,
         {{{enter, {u"helpPositionsEnter"_s, u"добавить введённый товар"_s}},
           position,
           {esc, {u"helpPositionsEsc"_s, u"очистить поиск"_s}}},
          {u"helpPositionsNext"_s, u"Добавьте все товары, затем переходите к подытогу и оплате."_s}}},
        {u"subtotal"_s,
         {{{enter, {u"helpSubtotalEnter"_s, u"к оплате"_s}}, position, backToPositions},
          {u"helpSubtotalNext"_s, u"Проверьте позиции и сумму, затем переходите к оплате."_s}}},
        {u"payment"_s,
         {{{enter, {u"helpPaymentEnter"_s, u"закрыть чек; пустое поле — ровно сумма к оплате"_s}}, backToPositions},
          {u"helpPaymentNext"_s, u"Введите полученные деньги: касса покажет сдачу. Затем закройте чек."_s}}},
        {u"payOut"_s,
         {{{enter, {u"helpPayOutEnter"_s, u"закрыть возврат"_s}}, backToPositions},
          {u"helpPayOutNext"_s, u"Верните деньги покупателю и закройте возврат."_s}}},

        {u"goodsSelectionForm"_s,
         {{{arrows, {u"helpGoodsRow"_s, u"выбрать товар"_s}},
           {u"Tab"_s, {u"helpGoodsPacks"_s, u"к количеству упаковок"_s}},
           {enter, {u"helpGoodsEnter"_s, u"взять выбранный товар"_s}},
           {nameOf(formkeys::allGoods), {u"helpGoodsAll"_s, u"все товары, если с этим МНН ничего нет"_s}},
           back},
          {u"helpGoodsNext"_s, u"Найдите товар по названию, МНН или штрихкоду и укажите упаковки."_s}}},
        {u"documentListForm"_s,
         {{{arrows, {u"helpDocumentsRow"_s, u"выбрать документ"_s}},
           {nameOf(formkeys::resume), {u"helpDocumentsResume"_s, u"взять отложенный в работу (также Ввод)"_s}},
           {nameOf(formkeys::returnSale), {u"helpDocumentsReturn"_s, u"вернуть продажу"_s}},
           {nameOf(formkeys::voidDocument), {u"helpDocumentsVoid"_s, u"аннулировать"_s}},
           {nameOf(formkeys::printCopy), {u"helpDocumentsPrint"_s, u"напечатать копию"_s}},
           back},
          {u"helpDocumentsNext"_s, u"Найдите документ по номеру, дню или товару и выберите, что с ним сделать."_s}}},
        {u"menuForm"_s,
         {{{u"1–9"_s, {u"helpMenuDigit"_s, u"выбрать по номеру"_s}},
           {arrows, {u"helpMenuRow"_s, u"к другому пункту"_s}},
           {enter, {u"helpMenuEnter"_s, u"выполнить пункт в рамке"_s}},
           back},
          {u"helpMenuNext"_s, u"Выберите, что сделать. У серых пунктов указано, почему они недоступны."_s}}},
        {u"questionForm"_s,
         {{{u"Tab"_s, {u"helpQuestionTab"_s, u"к другому ответу"_s}},
           {enter, {u"helpQuestionEnter"_s, u"ответить кнопкой в рамке"_s}},
           {esc, {u"helpQuestionEsc"_s, u"ничего не менять"_s}}},
          {u"helpQuestionNext"_s, u"Прочитайте вопрос и выберите ответ."_s}}},
        {u"returnForm"_s,
         {{position,
           {tr::Tr(u"helpSpaceKey"_s, u"Пробел"_s).ui(), {u"helpReturnSpace"_s, u"выбрать позицию или снять"_s}},
           {nameOf(formkeys::allPositions), {u"helpReturnAll"_s, u"выбрать все или снять все"_s}},
           {enter, {u"helpReturnEnter"_s, u"вернуть выбранные"_s}},
           back},
          {u"helpReturnNext"_s,
           u"Сначала выбраны все позиции, которые можно вернуть. Снимите лишние, затем верните выбранные."_s}}},

        {QString(),
         {{{u"Tab"_s, {u"helpAnyTab"_s, u"к следующему полю или кнопке"_s}},
           {enter, {u"helpAnyEnter"_s, u"нажать кнопку в рамке"_s}},
           back},
          {u"helpAnyNext"_s, u"Прочитайте, что написано на экране, и нажмите нужную кнопку."_s}}},
    };
}

} // namespace

FormHelp screenHelp(const QString& screen)
{
    const QList<Screen> all = screens();
    const auto found =
        std::find_if(all.cbegin(), all.cend() - 1, [&screen](const Screen& one) { return one.name == screen; });
    return found->help;
}
