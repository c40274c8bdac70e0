#pragma once
// The companion tool's arguments: "--name value" options and "--flag" switches after a
// subcommand. A bad or missing argument is a UsageError naming it.

#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillmere::cli {

struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Args {
 public:
  // `options` take a value, `flags` do not. Throws UsageError on anything else.
  Args(const std::vector<std::string>& words, const std::set<std::string>& options,
       const std::set<std::string>& flags);

  bool Has(const std::string& name) const { return values_.count(name) != 0; }
  // The value of a required option; UsageError when it is missing.
  const std::string& Required(const std::string& name) const;
  std::optional<std::string> Optional(const std::string& name) const;

 private:
  std::map<std::string, std::string> values_;
};

// An instant "YYYY-MM-DDTHH:MM:SS" (UT) as a date-time value; with `dateAlone`, also a bare
// "YYYY-MM-DD". UsageError naming `option` when the text is no such instant.
double ParseInstant(const std::string& option, const std::string& text, bool dateAlone);

// Latitude in degrees, north positive: a decimal or the program's colon forms.
float ParseLatitude(const std::string& option, const std::string& text);
// Longitude in degrees, west positive: a decimal or the program's colon forms ("-75:30" east).
float ParseLongitude(const std::string& option, const std::string& text);

}  // namespace quillmere::cli
