// SPDX-License-Identifier: MIT
#include "rulefields.h"

using namespace Qt::StringLiterals;

namespace emulator
{
const QList<RuleField>& ruleFields()
{
    static const QList<RuleField> fields{
        {u"tokenLifetime"_s, &Rules::tokenLifetime},
        {u"oaisToken"_s, &Rules::oaisToken},
        {u"prescriptionScope"_s, &Rules::prescriptionScope},
        {u"dispenseScope"_s, &Rules::dispenseScope},
        {u"dosageSystem"_s, &Rules::dosageSystem},
        {u"showDispenseIds"_s, &Rules::showDispenseIds},
        {u"showPharmacies"_s, &Rules::showPharmacies},
        {u"showCancelledDispenses"_s, &Rules::showCancelledDispenses},
    };
    return fields;
}
} // namespace emulator
