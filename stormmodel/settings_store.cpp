#include "stormmodel/settings_store.h"

#include <cctype>

namespace quillmere {
namespace {

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

}  // namespace

std::string MemorySettings::GetSetting(const std::string& application, const std::string& section,
                                       const std::string& key, const std::string& fallback) const {
  const auto it = values_.find({application, Lower(section), key});
  return it == values_.end() ? fallback : it->second;
}

void MemorySettings::SaveSetting(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& value) {
  values_[{application, Lower(section), key}] = value;
  writes.push_back(section + "/" + key + "=" + value);
}

}  // namespace quillmere
