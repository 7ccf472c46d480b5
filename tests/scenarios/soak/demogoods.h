// SPDX-License-Identifier: MIT
#pragma once

#include <array>

/// Goods of the demo data that the soak sells; host/register/demo/goods.json has them. Money is in kopecks.
namespace soak
{

struct Goods {
    const char* barcode;
    int price;
};

/// A medicine that is prescribed, and the goods that the selection offers first for it.
struct Medicine {
    const char* inn;
    const char* tradeName;
    const char* dosageCode;
    const char* barcode;
    int price;
    int cataloguePrice;
    int lowestPrice; ///< 0: none
};

inline constexpr std::array goodsWithoutPrescription{
    Goods{"2990000000415", 210},  Goods{"2990000000439", 195}, Goods{"2990000000446", 260},
    Goods{"2990000000453", 1990}, Goods{"2990000000460", 300}, Goods{"2990000000477", 85},
    Goods{"2990000000484", 440},  Goods{"2990000000507", 630}, Goods{"2990000000514", 1425},
    Goods{"2990000000538", 95},   Goods{"2990000000545", 545}, Goods{"2990000000569", 385},
    Goods{"2990000000583", 135},  Goods{"2990000000590", 110}, Goods{"2990000000606", 160}};

inline constexpr std::array medicines{Medicine{"Амоксициллин", "Амоксидар", "1001", "2990000000019", 1240, 1290, 120},
                                      Medicine{"Парацетамол", "Параделин", "1002", "2990000000040", 315, 328, 0},
                                      Medicine{"Метформин", "Метфолин", "1003", "2990000000064", 1490, 1550, 0},
                                      Medicine{"Эналаприл", "Эналакор", "1004", "2990000000095", 462, 480, 0},
                                      Medicine{"Амлодипин", "Амлонорд", "1005", "2990000000118", 678, 705, 0},
                                      Medicine{"Аторвастатин", "Аторвелл", "1006", "2990000000149", 1830, 1903, 120},
                                      Medicine{"Бисопролол", "Бисопрол-Нео", "1007", "2990000000163", 805, 837, 0},
                                      Medicine{"Лозартан", "Лозавита", "1008", "2990000000194", 999, 1039, 0},
                                      Medicine{"Омепразол", "Омезалин", "1009", "2990000000217", 744, 774, 0},
                                      Medicine{"Левотироксин", "Левотирис", "1010", "2990000000248", 1001, 1041, 0},
                                      Medicine{"Ибупрофен", "Ибуферон", "1011", "2990000000262", 520, 541, 120},
                                      Medicine{"Азитромицин", "Азимедин", "1012", "2990000000293", 1135, 1180, 0}};

} // namespace soak
