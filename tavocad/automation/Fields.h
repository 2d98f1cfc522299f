#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Ends the handling of a request: the sentence is its reply.
struct RequestError {
    std::wstring sentence;
};

// The fields of one request. A field that is missing or of another type than asked for throws a RequestError
// that names it; an optional field may be missing or null, but not of another type.
class Fields {
  public:
    // Throws for a line that is no JSON object.
    static Fields parse(std::string_view line);

    std::wstring text(const char* name) const;
    std::optional<std::wstring> optionalText(const char* name) const;
    int integer(const char* name) const;
    std::optional<int> optionalInteger(const char* name) const;
    std::optional<bool> optionalBool(const char* name) const;
    double number(const char* name) const;
    std::vector<double> numbers(const char* name) const;
    std::vector<int> integers(const char* name) const;
    std::vector<std::pair<int, int>> integerPairs(const char* name) const;
    std::vector<std::wstring> texts(const char* name) const;
    // The field as it stands, null when it is missing.
    const nlohmann::json* find(const char* name) const;
    const nlohmann::json& value(const char* name) const;

    [[noreturn]] static void wrongType(const char* name, const wchar_t* wanted);

  private:
    explicit Fields(nlohmann::json object) : m_object(std::move(object)) {}
    nlohmann::json m_object;
};
