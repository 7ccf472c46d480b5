// SPDX-License-Identifier: MIT
// The order of the virtual members. Test doubles that were built elsewhere rely on it.
#include "electronicprescriptionchoicemodel.h"
#include "electronicprescriptiondialog.h"
#include "electronicprescriptionformcreator.h"
#include "vtableslot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

TEST(SlotOrder, dialogFacade_ownOperationsFollowTheHostsDialogs)
{
    using Dialog = ElectronicPrescriptionDialog;
    const auto show = virtualSlot(&core::BasicDialog::show);
    ASSERT_GE(show, 0);
    EXPECT_EQ(virtualSlot(&Dialog::choiceElectronicPrescription), show + 1);
    EXPECT_EQ(virtualSlot(&Dialog::showElectronicPrescription), show + 2);
    EXPECT_EQ(virtualSlot(&Dialog::confirmDispenseForElectronicPrescription), show + 3);
}

TEST(SlotOrder, formCreator_createByEventIsBeforeCreateByContext)
{
    using Creator = ElectronicPrescriptionFormCreator;
    using ByEvent = QSharedPointer<BasicForm> (Creator::*)(const Event&);
    using ByContext = QSharedPointer<BasicForm> (Creator::*)(EContext::Code);
    EXPECT_EQ(virtualSlot(static_cast<ByEvent>(&Creator::create)), 2) << "behind the destructor's two";
    EXPECT_EQ(virtualSlot(static_cast<ByContext>(&Creator::create)), 3);
}

TEST(SlotOrder, choiceModel_overridesAreInTheBaseClasssOrder)
{
    using Model = ElectronicPrescriptionChoiceModel;
    using Parent = QModelIndex (Model::*)(const QModelIndex&) const;
    const std::ptrdiff_t places[] = {
        virtualSlot(&Model::index),    virtualSlot(static_cast<Parent>(&Model::parent)),
        virtualSlot(&Model::rowCount), virtualSlot(&Model::columnCount),
        virtualSlot(&Model::data),     virtualSlot(&Model::headerData),
    };
    EXPECT_TRUE(std::is_sorted(std::begin(places), std::end(places)));
    EXPECT_GT(places[0], 0);
}
