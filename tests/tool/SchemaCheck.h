// Validates documents against the keywords that the schema of the JSON form uses.
#pragma once

#include <nlohmann/json.hpp>
#include <regex>
#include <string>

struct SchemaCheck {
  using Json = nlohmann::json;

  const Json& Root;
  std::string Unknown;  // a keyword that this check does not support

  bool Accepts(const Json& schema, const Json& value) {
    // First, since the other keywords apply to values of that type only.
    if (schema.contains("type") && !IsOfType(schema["type"], value)) return false;
    for (const auto& [keyword, rule] : schema.items()) {
      if (!Holds(keyword, rule, schema, value)) return false;
    }
    return true;
  }

 private:
  bool Holds(const std::string& keyword, const Json& rule, const Json& schema, const Json& value) {
    if (keyword == "$ref") return Accepts(Root.at(Json::json_pointer(Pointer(rule))), value);
    if (keyword == "oneOf") return AcceptsOne(rule, value);
    if (keyword == "not") return !Accepts(rule, value);
    if (keyword == "const") return value == rule;
    if (keyword == "minimum") return value >= rule;
    if (keyword == "maximum") return value <= rule;
    if (keyword == "minItems") return value.size() >= rule;
    if (keyword == "maxItems") return value.size() <= rule;
    if (keyword == "items")
      return All(value, [&](const Json& item) { return Accepts(rule, item); });
    if (keyword == "required")
      return All(rule, [&](const Json& key) { return value.contains(key.get<std::string>()); });
    if (keyword == "properties") return AcceptsMembers(rule, value);
    if (keyword == "additionalProperties") return HasOnly(schema.at("properties"), value);
    if (keyword == "pattern")
      return std::regex_match(value.get<std::string>(), std::regex(rule.get<std::string>()));
    if (keyword != "type" && keyword != "$schema" && keyword != "$defs" && keyword != "title" &&
        keyword != "description") {
      Unknown = keyword;
    }
    return true;
  }

  static std::string Pointer(const Json& reference) {
    return reference.get<std::string>().substr(1);
  }

  static bool All(const Json& array, const auto& holds) {
    return std::all_of(array.begin(), array.end(), holds);
  }

  bool AcceptsOne(const Json& schemas, const Json& value) {
    const auto accepts = [&](const Json& schema) { return Accepts(schema, value); };
    return std::count_if(schemas.begin(), schemas.end(), accepts) == 1;
  }

  bool AcceptsMembers(const Json& properties, const Json& value) {
    for (const auto& [key, schema] : properties.items()) {
      if (value.contains(key) && !Accepts(schema, value.at(key))) return false;
    }
    return true;
  }

  static bool HasOnly(const Json& properties, const Json& value) {
    for (const auto& [key, member] : value.items()) {
      if (!properties.contains(key)) return false;
    }
    return true;
  }

  static bool IsOfType(const Json& type, const Json& value) {
    if (type == "integer") return value.is_number_integer();
    return value.type_name() == type.get<std::string>();
  }
};
