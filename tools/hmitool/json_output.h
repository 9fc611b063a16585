// JSON output: documents built with nlohmann-json, keys in the order they were added.
#ifndef HMITOOL_JSON_OUTPUT_H
#define HMITOOL_JSON_OUTPUT_H

#include <cstdio>
#include <string>

#include <nlohmann/json.hpp>

namespace hmitool {

using Json = nlohmann::ordered_json;

// Indented, one value per line; text that is not valid UTF-8 is written with U+FFFD in its place.
inline std::string JsonText(const Json& value) {
    return value.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

inline void PrintJson(const Json& value) { std::fputs(JsonText(value).c_str(), stdout); }

}  // namespace hmitool

#endif
