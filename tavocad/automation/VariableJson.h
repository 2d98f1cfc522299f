#pragma once

#include <nlohmann/json.hpp>

#include <string>

class TavoSysvarManager;

// System variables of the current drawing as JSON: whole numbers, reals and angles (radians) as numbers, points
// as arrays, everything else as text. Both throw RequestError with the manager's reason.
nlohmann::ordered_json readVariable(const TavoSysvarManager& manager, const std::wstring& name);
void writeVariable(TavoSysvarManager& manager, const std::wstring& name, const nlohmann::json& value);
