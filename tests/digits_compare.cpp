// Compares the replies of two builds of quillmere-cli digit for digit (the Linux one and the
// Windows one under Wine): it writes a batch of random instants and days, then reads the two
// builds' replies to that batch and counts the fields that differ.
//
//   digits_compare commands SEED INSTANTS DAYS > batch.txt
//   digits_compare compare batch.txt linux.out windows.out

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

// Uniform in [low, high], from the generator's bits alone so that a seed names the same batch
// with any standard library.
int64_t Draw(std::mt19937_64& rng, int64_t low, int64_t high) {
  return low + static_cast<int64_t>(rng() % static_cast<uint64_t>(high - low + 1));
}

bool IsLeap(int y) {
  return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int DaysIn(int y, int m) {
  static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && IsLeap(y) ? 29 : days[m - 1];
}

// Observers all over the globe: latitude -90 to 90, longitude west 0 to 360; one in eight is
// given as a negative (eastern) decimal, which the tool also takes.
std::string Observer(std::mt19937_64& rng) {
  const double lat = static_cast<double>(Draw(rng, -900000, 900000)) / 10000;
  double lng = static_cast<double>(Draw(rng, 0, 3600000)) / 10000;
  if (Draw(rng, 0, 7) == 0) lng -= 360;
  char buf[64];
  std::snprintf(buf, sizeof buf, "--lat %.4f --long %.4f --json", lat, lng);
  return buf;
}

std::string Date(std::mt19937_64& rng) {
  const int y = static_cast<int>(Draw(rng, 1900, 2100));
  const int m = static_cast<int>(Draw(rng, 1, 12));
  const int d = static_cast<int>(Draw(rng, 1, DaysIn(y, m)));
  char buf[16];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", y, m, d);
  return buf;
}

int Commands(uint64_t seed, int instants, int days) {
  std::mt19937_64 rng(seed);
  for (int i = 0; i < instants; ++i) {
    const std::string date = Date(rng);
    std::printf("instant --time %sT%02d:%02d:%02d %s\n", date.c_str(),
                static_cast<int>(Draw(rng, 0, 23)), static_cast<int>(Draw(rng, 0, 59)),
                static_cast<int>(Draw(rng, 0, 59)), Observer(rng).c_str());
  }
  for (int i = 0; i < days; ++i) {
    const std::string date = Date(rng);
    std::printf("minutes --day %s %s\n", date.c_str(), Observer(rng).c_str());
  }
  return 0;
}

std::vector<std::string> Lines(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();  // Windows' text-mode stdout
    lines.push_back(line);
  }
  return lines;
}

// One JSON reply as the tool prints it: "{", one `  "Name": value` line per field, "}".
using Reply = std::vector<std::pair<std::string, std::string>>;

std::vector<Reply> Replies(const std::string& path) {
  std::vector<Reply> replies;
  for (const std::string& line : Lines(path)) {
    if (line == "{") {
      replies.emplace_back();
    } else if (line != "}" && !replies.empty()) {
      const size_t colon = line.find("\": ");
      if (colon == std::string::npos) continue;
      std::string value = line.substr(colon + 3);
      if (!value.empty() && value.back() == ',') value.pop_back();
      const size_t open = line.find('"');
      replies.back().emplace_back(line.substr(open, colon + 1 - open), value);
    }
  }
  return replies;
}

std::vector<std::string> Elements(const std::string& array) {
  std::vector<std::string> out;
  std::stringstream in(array.substr(1, array.size() - 2));
  for (std::string e; std::getline(in, e, ',');) out.push_back(e);
  return out;
}

int Compare(const std::string& commandsPath, const std::string& aPath, const std::string& bPath) {
  std::vector<std::string> commands;
  for (const std::string& c : Lines(commandsPath))
    if (!c.empty()) commands.push_back(c);
  const std::vector<Reply> a = Replies(aPath), b = Replies(bPath);
  if (a.size() != commands.size() || b.size() != commands.size()) {
    std::printf("replies: %zu commands, %zu and %zu replies\n", commands.size(), a.size(),
                b.size());
    return 1;
  }
  long instants = 0, fields = 0, fieldsDiffering = 0, days = 0, rows = 0, rowsDiffering = 0;
  std::map<std::string, long> byField;
  int shown = 0;
  auto show = [&](const std::string& command, const std::string& what, const std::string& x,
                  const std::string& y) {
    if (shown++ < 20)
      std::printf("differs: %s\n  %s: %s against %s\n", command.c_str(), what.c_str(), x.c_str(),
                  y.c_str());
  };
  for (size_t i = 0; i < commands.size(); ++i) {
    const Reply &x = a[i], &y = b[i];
    if (x.size() != y.size()) {
      std::printf("differs: %s\n  %zu fields against %zu\n", commands[i].c_str(), x.size(),
                  y.size());
      return 1;
    }
    const bool minutes = commands[i].starts_with("minutes");
    if (!minutes) {
      ++instants;
      for (size_t f = 0; f < x.size(); ++f) {
        ++fields;
        if (x[f] == y[f]) continue;
        ++fieldsDiffering;
        ++byField[x[f].first];
        show(commands[i], x[f].first, x[f].second, y[f].second);
      }
      continue;
    }
    ++days;
    std::vector<std::vector<std::string>> tx, ty;
    for (size_t f = 0; f < x.size(); ++f) {
      tx.push_back(Elements(x[f].second));
      ty.push_back(Elements(y[f].second));
      if (x[f].first != y[f].first || tx.back().size() != ty.back().size()) {
        std::printf("differs: %s\n  the tables do not match in shape\n", commands[i].c_str());
        return 1;
      }
    }
    for (size_t r = 0; !tx.empty() && r < tx[0].size(); ++r) {
      ++rows;
      bool same = true;
      for (size_t f = 0; f < tx.size(); ++f) {
        if (tx[f][r] == ty[f][r]) continue;
        same = false;
        ++byField[x[f].first];
        show(commands[i], x[f].first + "[" + std::to_string(r) + "]", tx[f][r], ty[f][r]);
      }
      if (!same) ++rowsDiffering;
    }
  }
  std::printf("%ld instants: %ld of %ld fields differ\n", instants, fieldsDiffering, fields);
  std::printf("%ld days: %ld of %ld minute rows differ\n", days, rowsDiffering, rows);
  for (const auto& [name, count] : byField) std::printf("  %s: %ld\n", name.c_str(), count);
  return fieldsDiffering + rowsDiffering == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.size() == 4 && args[0] == "commands")
    return Commands(std::strtoull(args[1].c_str(), nullptr, 10), std::atoi(args[2].c_str()),
                    std::atoi(args[3].c_str()));
  if (args.size() == 4 && args[0] == "compare") return Compare(args[1], args[2], args[3]);
  std::fprintf(stderr,
               "usage: digits_compare commands SEED INSTANTS DAYS\n"
               "       digits_compare compare COMMANDS LINUX_REPLIES OTHER_REPLIES\n");
  return 2;
}
