// SPDX-License-Identifier: MIT
#include "screens.h"

#include "askform.h"
#include "catalogue.h"
#include "dialog.h"
#include "dispensechoicedialog.h"
#include "electronicprescriptionchoiceparams.h"
#include "electronicprescriptionconfirmdispenseparams.h"
#include "electronicprescriptionparams.h"
#include "goodsselectionparams.h"
#include "helpform.h"
#include "looks.h"
#include "menuparams.h"
#include "notice.h"
#include "packsquestion.h"
#include "prescriptiontexts.h"
#include "question.h"
#include "recoverytexts.h"
#include "registeraction.h"
#include "registrysteps.h"
#include "returnparams.h"
#include "runningrequest.h"
#include "screenhelp.h"
#include "terminaldouble.h"
#include "workstep.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTableView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

const QString longName = u"Ацетилсалициловая кислота + магния гидроксид, таблетки кишечнорастворимые 150 мг №100"_s;

/// The longest text of the catalogues in the language of the test that has `part`, whatever program it belongs to.
tr::Tr longestText(const QString& sources, const QString& part = {})
{
    const QStringList texts = textsOfCatalogues(sources, std::get<const char*>(Screens::GetParam())).filter(part);
    const auto longest = std::max_element(texts.cbegin(), texts.cend(),
                                          [](const auto& one, const auto& other) { return one.size() < other.size(); });
    return {tr::undefined, *longest};
}

/// Lets a layout come to its end: widgets that are deleted later still take room, and each level informs the next one.
void settle()
{
    for (int round = 0; round < 3; ++round) {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
}

void setText(const QWidget& root, const char* field, const QString& text)
{
    root.findChild<QLineEdit*>(QLatin1StringView(field))->setText(text);
}

void click(const QWidget& root, const char* button)
{
    root.findChild<QPushButton*>(QLatin1StringView(button))->click();
}

/// A position as a prescription's is, with these options.
void makePrescriptions(Position& position, const QByteArray& options)
{
    position.setTag(u"prescription"_s);
    position.setSoftCheckId(u"4500-1"_s);
    position.setExtendedOptions(QString::fromUtf8(options));
}

/// An invented patient's.
QSharedPointer<ElectronicPrescription> prescription()
{
    auto made = QSharedPointer<ElectronicPrescription>::create();
    made->setInn(u"Инсулин гларгин"_s);
    made->setInnCode(u"2104512"_s);
    made->setTradeName(u"Лантус СолоСтар"_s);
    made->setTradeNameCode(u"100234"_s);
    made->setPrescriptionDate(QDate(2024, 3, 1));
    made->setExpirationDate(QDate(2024, 4, 30));
    made->setPractitionerName(u"Осокин Лев Андреевич"_s);
    made->setPayByPatientSumFactor(0.5);
    made->setDoseQuantity(30);
    made->setInstructions(u"Подкожно по 10 единиц один раз в день вечером"_s);
    made->setPayingElectronicPrescriptionOrganization(
        QSharedPointer<PayingElectronicPrescriptionOrganization>::create(u"77"_s, u"Фонд здоровья"_s));
    made->setDictCode(u"2104512"_s);
    made->setDictName(u"Инсулин гларгин, раствор для подкожного введения 100 ЕД/мл"_s);
    made->addMedicationDispenseDate(QDate(2023, 1, 5));
    made->addMedicationDispenseDate(QDate(2023, 2, 5));
    return made;
}

QSharedPointer<Patient> patient()
{
    return QSharedPointer<Patient>::create(u"Рябинина Ольга Петровна"_s, QDate(1961, 5, 4));
}

} // namespace

const QList<Screens::Screen> Screens::sale{
    {"salesScreen", &Screens::idle},           {"salesScreen", &Screens::positions},
    {"salesScreen", &Screens::statusLine},     {"paymentPanel", &Screens::payment},
    {"paymentPanel", &Screens::paymentByCard}, {"paymentPanel", &Screens::returnByCard},
};
const QList<Screens::Screen> Screens::covers{
    {"busyScreen", &Screens::work},
    {"lockScreen", &Screens::lockWithoutCode},
    {"lockScreen", &Screens::lockWithCode},
    {"lockScreen", &Screens::lockWithLetters},
};
const QList<Screens::Screen> Screens::forms{
    {"goodsSelectionForm", &Screens::goods},
    {"goodsSelectionForm", &Screens::goodsOfAName},
    {"documentListForm", &Screens::documents},
    {"documentListForm", &Screens::documentsWithLetters},
    {"returnForm", &Screens::positionsToReturn},
    {"menuForm", &Screens::menu},
    {"helpForm", &Screens::help},
};
const QList<Screens::Screen> Screens::dialogs{
    {"questionForm", &Screens::questions},
    {"messageForm", &Screens::messages},
    {"textInputForm", &Screens::inputOfDoses},
    {"textInputForm", &Screens::inputOfACard},
};
const QList<Screens::Screen> Screens::prescriptions{
    {"electronicPrescriptionChoiceForm", &Screens::choice},
    {"electronicPrescriptionForm", &Screens::details},
    {"electronicPrescriptionConfirmDispenseForm", &Screens::confirmation},
    {"dispenseChoiceForm", &Screens::dispenseChoice},
};

QStringList Screens::names()
{
    QStringList names;
    for (const QList<Screen>& screens : {sale, covers, forms, dialogs, prescriptions}) {
        for (const Screen& screen : screens) {
            names.append(QString::fromLatin1(screen.name));
        }
    }
    return names;
}

Screens::Screens()
    : PharmacyWindow(std::get<QSize>(GetParam()), std::get<bool>(GetParam()), std::get<const char*>(GetParam()))
{
    m_documentCommands.offer(controller.object);
    till->add(article(amoxidar));
    till->add(article(u"2990000000026"_s));
    EXPECT_TRUE(till->close({Payment::cash(till->document()->getSum())}));
    till->add(article(amoxidar));
    EXPECT_TRUE(till->suspend());
}

void Screens::lookAt(const QList<Screen>& screens)
{
    openSized();
    for (const Screen& screen : screens) {
        m_seen.clear();
        (this->*screen.look)();
        EXPECT_TRUE(m_seen.contains(QString::fromLatin1(screen.name))) << screen.name << " is not seen";
    }
}

void Screens::expectGood(const QWidget& screen, const char* state)
{
    settle();
    keepPicture(state);
    EXPECT_EQ(looks::cutOff(screen).join(u", "_s).toStdString(), "") << state;
    EXPECT_EQ(looks::faint(screen).join(u", "_s).toStdString(), "") << state;
    if (std::get<bool>(GetParam())) {
        EXPECT_EQ(looks::hardToHit(screen).join(u", "_s).toStdString(), "") << state;
        EXPECT_EQ(looks::namesOfKeys(looks::textsOn(screen)).join(u", "_s).toStdString(), "") << state;
    }
    m_seen.insert(screen.objectName());
    for (const QWidget* part : screen.findChildren<QWidget*>()) {
        if (part->isVisible()) {
            m_seen.insert(part->objectName());
        }
    }
}

/// In the folder SCREENS_PICTURES of the environment, when there is one, for somebody to look at.
void Screens::keepPicture(const char* state)
{
    const QString pictures = qEnvironmentVariable("SCREENS_PICTURES");
    if (!pictures.isEmpty()) {
        const QString test = QString::fromLatin1(::testing::UnitTest::GetInstance()->current_test_info()->name());
        const QString number = QString::number(++m_pictures).rightJustified(2, u'0');
        EXPECT_TRUE(window->grab().save(pictures + u'/' + test.section(u'/', 1) + u' ' + test.section(u'_', 0, 0) +
                                        u' ' + number + u' ' + QString::fromLatin1(state) + u".png"_s));
    }
}

void Screens::expectGoodForm(const char* state, const QString& form, const std::function<void()>& show,
                             const Cashier::Act& act)
{
    cashier.onForm(form, [&, this](QWidget& root) {
        act(root);
        expectGood(root, state);
        EXPECT_TRUE(window->rect().contains(QRect(root.mapTo(window.get(), QPoint()), root.size()))) << state;
        gui.object.cancelForms();
    });
    show();
    EXPECT_TRUE(cashier.isDone()) << state;
}

void Screens::idle()
{
    expectGoodWindow("idle");
    setText(*window, "searchLineEdit", longName);
    expectGoodWindow("something typed");
    setText(*window, "searchLineEdit", {});
}

void Screens::addPositionsInEveryState()
{
    for (const char* options :
         {"{}", R"({"status": "dispensed"})", R"({"status": "canceled"})", R"({"recovery": "unknown"})"}) {
        till->add(article(u"2990000000026"_s));
        makePrescriptions(*till->document()->positions().constLast(), options);
    }
    till->document()->setPluginValue(u"ElectronicPrescriptionService"_s, u"cardNumber"_s, u"110012345678"_s);
    emit till->changed();
}

void Screens::positions()
{
    SelectedGoods goods = article(amoxidar);
    goods.goods.name = longName;
    till->add(goods);
    expectGoodWindow("a position");
    addPositionsInEveryState();
    auto* table = widget<QTableView>("receiptTable");
    for (int row = 0; row < table->model()->rowCount(); ++row) { // each is the selected one once
        table->selectRow(row);
        expectGoodWindow("positions in every state");
    }
    ASSERT_TRUE(till->cancel());
}

void Screens::statusLine()
{
    StatusLine& line = window->statusLine();
    line.showPlugins(tr::Tr(u"pluginsActive"_s, u"Модулей: %1"_s).arg(u"12"_s).ui(), u"x"_s);
    line.showMessage(longestText(sources).ui(), u"x"_s);
    expectGoodWindow("long message");
    line.showWarning(longestText(sources).ui());
    expectGoodWindow("warning");
    line.showDone(u"№ 99999999: 9 999 999,99 BYN"_s);
    expectGoodWindow("what was done");
    line.dropNews();
    line.showMessage({});
}

void Screens::payment()
{
    till->add(article(amoxidar));
    till->setPhase(Till::Phase::Subtotal);
    expectGoodWindow("subtotal");
    till->setPhase(Till::Phase::Payment);
    expectGoodWindow("payment");
    for (const char* received : {"5", "5000"}) {
        setText(*window, "receivedLineEdit", QString::fromLatin1(received));
        expectGoodWindow("money received");
    }
    QTest::keyClick(widget<QLineEdit>("receivedLineEdit"), Qt::Key_X);
    expectGoodWindow("no amount");
    scan(amoxidar);
    expectGoodWindow("barcode instead of money");
    ASSERT_TRUE(till->cancel());
}

void Screens::paymentByCard()
{
    const ConnectedTerminal terminal;
    till->add(article(amoxidar));
    till->setPhase(Till::Phase::Payment);
    expectGoodWindow("payment with a terminal");
    ASSERT_TRUE(till->cancel());
}

void Screens::returnByCard()
{
    const ConnectedTerminal terminal;
    till->add(article(amoxidar));
    CardOperation charged{.state = CardOperation::State::Approved, .amount = Kopecks{1000}, .reference = u"1-1"_s};
    ASSERT_TRUE(till->recordOrShow(till->document(), charged));
    till->setPhase(Till::Phase::Payment);
    expectGoodWindow("payment partly by card");
    const int number = till->document()->getNumber();
    ASSERT_TRUE(till->close({Payment::cash(Kopecks{240}), Payment::card(Kopecks{1000})}));
    ASSERT_TRUE(till->returnSale(till->archive().find(number)));
    expectGoodWindow("return");
    till->setPhase(Till::Phase::Subtotal);
    expectGoodWindow("subtotal of a return");
    till->setPhase(Till::Phase::Payment);
    expectGoodWindow("paying out");
    ASSERT_TRUE(till->cancel());
}

void Screens::expectGoodWork(const char* state)
{
    notifier.object.notify(Event(EActivityListener::LongWorkBegins)
                               .addArgument(u"message"_s, QVariant::fromValue(recoverytexts::asking()))
                               .addArgument(u"seconds"_s, 720));
    expectGood(*widget<QWidget>("busyScreen"), state);
    notifier.object.notify(Event(EActivityListener::LongWorkEnds));
}

void Screens::work()
{
    till->add(article(amoxidar));
    Position& position = *till->document()->positions().constFirst();
    makePrescriptions(position, R"({"serialNumber": "450012345678901"})");
    expectGoodWork("work without a request");
    const WorkStep lookUp({tr::undefined, longName});
    for (const bool changesSomething : {false, true}) {
        const RunningRequest request(std::chrono::seconds(600), changesSomething, WorkStep::currentText());
        expectGoodWork("a request");
    }
    for (const tr::Tr& text : {registrysteps::registration(position, 10, 12), registrysteps::cancellation(position)}) {
        const WorkStep::Hidden others;
        const WorkStep step(text);
        const RunningRequest request(std::chrono::seconds(600), true, WorkStep::currentText());
        expectGoodWork("a step");
    }
    ASSERT_TRUE(till->cancel());
}

void Screens::lockWithoutCode()
{
    openSized();
    window->lock();
    expectGood(*widget<QWidget>("lockScreen"), "lock without a code");
}

void Screens::lockWithCode()
{
    openSized(u"1234"_s);
    window->lock();
    const auto& lock = *widget<QWidget>("lockScreen");
    expectGood(lock, "lock");
    setText(lock, "unlockLineEdit", u"98"_s);
    expectGood(lock, "code typed");
    window->close();
    expectGood(lock, "closing refused");
    for (int wrong = 0; wrong < 3; ++wrong) {
        setText(lock, "unlockLineEdit", u"9"_s);
        click(lock, "unlockButton");
        expectGood(lock, "wrong code");
    }
}

void Screens::lockWithLetters()
{
    openSized(u"Ёж-1"_s);
    window->lock();
    expectGood(*widget<QWidget>("lockScreen"), "lock with letters");
}

void Screens::goods()
{
    const GoodsList all = catalogue.goodsOf({});
    const auto show = [&all] {
        askForm(GoodsSelectionParams::eventCode, GoodsSelectionParams{all, u"Амоксициллин / Амоксидар / 30.00"_s, {}});
    };
    expectGoodForm("goods", u"goodsSelectionForm"_s, show);
    expectGoodForm("goods typed", u"goodsSelectionForm"_s, show,
                   [](QWidget& root) { setText(root, "filterLineEdit", u"амо"_s); });
    expectGoodForm("no such goods", u"goodsSelectionForm"_s, show,
                   [](QWidget& root) { setText(root, "filterLineEdit", longName); });
    expectGoodForm("no packs", u"goodsSelectionForm"_s, show, [](QWidget& root) {
        setText(root, "quantityLineEdit", {});
        click(root, "okButton");
    });
}

void Screens::goodsOfAName()
{
    const GoodsList all = catalogue.goodsOf({});
    const GoodsSelectionParams wanted{catalogue.goodsOf(u"Нет"_s),    u"Нет / Нету / 30"_s, {}, {},
                                      u"Ацетилсалициловая кислота"_s, [&] { return all; }};
    const auto show = [&wanted] { askForm(GoodsSelectionParams::eventCode, wanted); };
    expectGoodForm("none of the name", u"goodsSelectionForm"_s, show);
    expectGoodForm("all goods instead", u"goodsSelectionForm"_s, show,
                   [](QWidget& root) { click(root, "allGoodsButton"); });
}

void Screens::documents()
{
    const auto show = [this] {
        control::Action action(registeraction::showDocuments);
        controller.object.execute(action);
    };
    expectGoodForm("documents", u"documentListForm"_s, show);
    expectGoodForm("each document", u"documentListForm"_s, show, [this](QWidget& root) {
        auto* table = root.findChild<QTableView*>(u"documentTable"_s);
        for (int row = 0; row < table->model()->rowCount(); ++row) {
            table->selectRow(row);
            expectGood(root, "a document");
        }
    });
    expectGoodForm("no such document", u"documentListForm"_s, show,
                   [](QWidget& root) { setText(root, "filterLineEdit", longName); });
    till->open();
    expectGoodForm("documents while one is open", u"documentListForm"_s, show);
    ASSERT_TRUE(till->cancel());
}

void Screens::documentsWithLetters()
{
    const auto typeLetters = [](QWidget& root) {
        for (auto* key : root.findChildren<QPushButton*>(u"key_layout"_s)) {
            if (key->isVisible()) {
                key->click();
                break;
            }
        }
        settle();
        const auto* table = root.findChild<QTableView*>(u"documentTable"_s);
        EXPECT_GE(table->viewport()->height(), 3 * table->rowHeight(0)) << "three rows are in sight";
    };
    expectGoodForm(
        "documents with letters", u"documentListForm"_s,
        [this] {
            control::Action action(registeraction::showDocuments);
            controller.object.execute(action);
        },
        typeLetters);
}

void Screens::positionsToReturn()
{
    expectGoodForm("positions to return", u"returnForm"_s, [this] {
        control::Action action(registeraction::returnSale);
        action.insert(u"number"_s, 1);
        controller.object.execute(action);
    });
    const auto positions = till->archive().find(1)->positions();
    const ReturnParams params{
        .title = u"№ 1"_s,
        .positions = positions,
        .marks = &marks,
        .places = {1, 2},
        .obstacles = {{positions.first()->getNumber(), {longestText(sources), tr::Tr(tr::undefined, longName)}}}};
    expectGoodForm(
        "a position that cannot be returned", u"returnForm"_s, [&params] { askForm(ReturnParams::eventCode, params); },
        [](QWidget& root) {
            root.findChild<QTableView*>(u"positionsTable"_s)->selectRow(0);
            QTest::keyClick(&root, Qt::Key_Space);
        });
}

void Screens::menu()
{
    MenuParams params;
    for (const FunctionKey& entry : configuredMenuEntries(*Singleton<Config>::get())) {
        params.entries.append({entry, params.entries.size() % 2 ? till->obstacleToSuspending() : std::nullopt});
    }
    expectGoodForm("menu", u"menuForm"_s, [&params] { askForm(MenuParams::eventCode, params); });
}

void Screens::help()
{
    for (const char* screen : {"idle", "positions", "subtotal", "payment", "payOut", "documentListForm",
                               "goodsSelectionForm", "menuForm", "questionForm", "returnForm", "another"}) {
        expectGoodForm(screen, u"helpForm"_s, [screen] {
            askForm(HelpParams::eventCode, HelpParams{u"Экран"_s, screenHelp(QString::fromLatin1(screen))});
        });
    }
}

void Screens::questions()
{
    const AddedPacks packs[] = {
        {.name = longName, .stock = 0, .after = 1},
        {.name = longName, .stock = 3, .after = 4},
        {.name = longName, .stock = 9999, .after = 999, .entered = 999},
    };
    for (const AddedPacks& added : packs) {
        ASSERT_TRUE(added.question());
        expectGoodForm("packs", u"questionForm"_s, [&added] { added.areWanted(); });
    }
    const Question longest{{u"cardTitle"_s, u"Операция по карте"_s},
                           longestText(sources, u"?"_s),
                           {u"busyStopYes"_s, u"Не ждать"_s},
                           {u"busyStopNo"_s, u"Ждать дальше"_s}};
    expectGoodForm("longest question", u"questionForm"_s, [&longest] { longest.ask(); });
}

void Screens::messages()
{
    expectGoodForm("notice", u"messageForm"_s, [] { showNotice(prescriptiontexts::noPrescriptions()); });
    expectGoodForm("longest message", u"messageForm"_s,
                   [] { Dialog::create()->showMessage(longestText(sources), Dialog::Error, 0, 0); });
    expectGoodForm("error without a text", u"messageForm"_s,
                   [] { Dialog::create()->showMessage({}, Dialog::Error, 0, 0); });
    till->add(article(amoxidar));
    Position& position = *till->document()->positions().constFirst();
    makePrescriptions(position, R"({"serialNumber": "450012345678901"})");
    const QStringList lines{
        recoverytexts::reconciliationTitle().ui(),
        recoverytexts::ofDocument(u"00000007"_s, recoverytexts::unclaimed(position, u"d-71"_s, 2.5).ui()).ui(),
        recoverytexts::summary(12, 3).ui()};
    expectGoodForm("reconciliation", u"messageForm"_s, [&lines] { showNotice({tr::undefined, lines.join(u'\n')}); });
    const WorkStep step(registrysteps::registration(position, 2, 3));
    expectGoodForm("message of a step", u"messageForm"_s,
                   [] { Dialog::create()->showMessage(prescriptiontexts::noPrescriptions(), Dialog::Error, 0, 0); });
    ASSERT_TRUE(till->cancel());
}

void Screens::inputOfDoses()
{
    TextInputParams params;
    params.title = {u"electronicPrescriptionInputDispensedDoseQuantityFormTitle"_s,
                    u"Ввод количества отпущенных доз"_s};
    params.message = tr::Tr(u"electronicPrescriptionInputDispensedDoseQuantityFormMessage"_s,
                            u"Введите количество отпущенных доз по рецепту на\n'%1 / %2'\n"
                            "(выписано %3/отпущено ранее %4)"_s)
                         .arg(u"Эналаприл"_s)
                         .arg(u"Эналакор"_s)
                         .arg(u"30.00"_s)
                         .arg(u"0.00"_s);
    params.hint = {u"electronicPrescriptionDosesHint"_s,
                   u"Число больше 0, не больше двух знаков после запятой или точки"_s};
    params.mask = u"\\d+"_s;
    params.numeric = true;
    params.manualOnly = true;
    params.columns = 10;
    const auto show = [&params] { Dialog::create()->showTextInput(params); };
    expectGoodForm("doses", u"textInputForm"_s, show);
    expectGoodForm("no doses", u"textInputForm"_s, show, [](QWidget& root) { click(root, "okButton"); });
    expectGoodForm("scan instead of doses", u"textInputForm"_s, show,
                   [this](QWidget& root) { scanInto(*root.findChild<QLineEdit*>(u"inputLineEdit"_s), amoxidar); });
}

void Screens::inputOfACard()
{
    TextInputParams params;
    params.title = {u"inputCardTitle"_s, u"Ввод карты"_s};
    params.message = {u"electronicPrescriptionInputCard"_s, u"Введите номер карты"_s};
    params.okText = prescriptiontexts::ok();
    params.cancelText = prescriptiontexts::cancel();
    params.required = true;
    const auto show = [&params] { Dialog::create()->showTextInput(params); };
    expectGoodForm("card", u"textInputForm"_s, show);
    expectGoodForm("no card", u"textInputForm"_s, show, [](QWidget& root) { click(root, "okButton"); });
}

void Screens::choice()
{
    const ElectronicPrescriptionChoiceParams params({prescription(), prescription()}, u"active"_s, patient(), false);
    const auto show = [&params] { askForm(params.getEvent()); };
    const QString form = u"electronicPrescriptionChoiceForm"_s;
    expectGoodForm("choice", form, show);
    expectGoodForm("no such prescription", form, show,
                   [](QWidget& root) { setText(root, "medicineNameLineEdit", u"нет такого"_s); });
}

void Screens::details()
{
    const QString form = u"electronicPrescriptionForm"_s;
    for (const char* status : {"active", "completed"}) {
        const ElectronicPrescriptionParams params(prescription(), QString::fromLatin1(status), patient());
        expectGoodForm(status, form, [&params] { askForm(params.getEvent()); });
    }
    const auto expired = prescription();
    expired->setExpirationDate(QDate(2020, 1, 1));
    const ElectronicPrescriptionParams params(expired, u"active"_s, patient());
    expectGoodForm("expired", form, [&params] { askForm(params.getEvent()); });
}

void Screens::confirmation()
{
    const ElectronicPrescriptionConfirmDispenseParams params(prescription());
    expectGoodForm("confirmation", u"electronicPrescriptionConfirmDispenseForm"_s,
                   [&params] { askForm(params.getEvent()); });
}

void Screens::dispenseChoice()
{
    DispenseChoiceParams params{u"Амоксидар, капсулы 500 мг № 16"_s,
                                u"4500-1"_s,
                                u"10"_s,
                                u"29.02.2024 12:30:05"_s,
                                {{u"29.02.2024 12:30"_s, u"10"_s, u"Аптека № 7"_s, u"d-71"_s},
                                 {u"29.02.2024"_s, u"10"_s, u"Аптека № 8"_s, {}}}};
    const auto show = [&params] { askForm(DispenseChoiceParams::eventCode, params); };
    const QString form = u"dispenseChoiceForm"_s;
    expectGoodForm("dispenses", form, show);
    expectGoodForm("a dispense chosen", form, show,
                   [](QWidget& root) { root.findChild<QTableView*>(u"dispensesTable"_s)->selectRow(0); });
    params.dispenses.clear();
    expectGoodForm("no dispense", form, show);
}
