// SPDX-License-Identifier: MIT
#pragma once

#include "expected.h"

#include <curl/curl.h>

/// Sets the options of one request and keeps the first one that libcurl does not take. Most of them protect the
/// request, so that none of them may be missing when it goes out.
class CurlOptions
{
public:
    /// @param easy outlives this
    explicit CurlOptions(CURL* easy)
        : m_easy(easy)
    {
    }

    template <typename Value>
    void set(CURLoption option, Value value)
    {
        const CURLcode code = curl_easy_setopt(m_easy, option, value);
        if (code != CURLE_OK && m_outcome) {
            m_outcome = failure(option, code);
        }
    }

    /// A failure's detail names the option that was not taken and the reason. It holds no value; the text is empty.
    const Expected<void>& outcome() const { return m_outcome; }

private:
    static Failure failure(CURLoption option, CURLcode code);

    CURL* m_easy;
    Expected<void> m_outcome;
};
