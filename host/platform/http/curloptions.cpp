// SPDX-License-Identifier: MIT
#include "curloptions_p.h"

using namespace Qt::StringLiterals;

Failure CurlOptions::failure(CURLoption option, CURLcode code)
{
    const curl_easyoption* known = curl_easy_option_by_id(option);
    const QString name = known ? QString::fromLatin1(known->name) : QString::number(option);
    return {{}, u"libcurl refused the option "_s + name + u": "_s + QString::fromUtf8(curl_easy_strerror(code))};
}
