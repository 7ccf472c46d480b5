// SPDX-License-Identifier: MIT
// Every screen as a cashier sees it, in each size, mode and language: nothing is cut off, every text can be read, and
// in touch mode every target can be hit and no text names a key.
#include "screens.h"

TEST_P(Screens, saleFromItsBeginningToThePayment_isReadable)
{
    lookAt(sale);
}

TEST_P(Screens, workAndLock_areReadable)
{
    lookAt(covers);
}

TEST_P(Screens, formsOfTheRegister_areReadable)
{
    lookAt(forms);
}

TEST_P(Screens, dialogs_areReadable)
{
    lookAt(dialogs);
}

TEST_P(Screens, formsOfThePlugins_areReadable)
{
    lookAt(prescriptions);
}

INSTANTIATE_TEST_SUITE_P(, Screens,
                         ::testing::Combine(::testing::Values(QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)),
                                            ::testing::Bool(), ::testing::Values("ru", "en")),
                         [](const auto& instance) {
                             return std::to_string(std::get<QSize>(instance.param).width()) +
                                    (std::get<bool>(instance.param) ? "touch" : "keys") +
                                    std::get<const char*>(instance.param);
                         });
