#pragma once
// The settings store as the storm model sees it: text values by application, section and key.
// The program backs it with its real store; tests and the companion tool with MemorySettings.

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace quillmere {

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  // The stored text, or `fallback` when there is none.
  virtual std::string GetSetting(const std::string& application, const std::string& section,
                                 const std::string& key, const std::string& fallback) const = 0;
  virtual void SaveSetting(const std::string& application, const std::string& section,
                           const std::string& key, const std::string& value) = 0;
};

// Section names match without regard to case, as in the real store.
class MemorySettings : public SettingsStore {
 public:
  std::string GetSetting(const std::string& application, const std::string& section,
                         const std::string& key, const std::string& fallback) const override;
  void SaveSetting(const std::string& application, const std::string& section,
                   const std::string& key, const std::string& value) override;

  // Every write in order, for tests: "section/key=value".
  std::vector<std::string> writes;

 private:
  std::map<std::tuple<std::string, std::string, std::string>, std::string> values_;
};

}  // namespace quillmere
