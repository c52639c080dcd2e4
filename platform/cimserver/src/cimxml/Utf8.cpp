#include "cimxml/Utf8.h"

#include "model/Utf.h"

#include <algorithm>

namespace cimserver {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

bool isUtf8(std::string_view bytes) {
    return isUtf8(bytes.data(), bytes.size());
}

}  // namespace cimserver
