#include "cli/output.h"

#include <algorithm>
#include <cstdio>

namespace quillmere::cli {
namespace {

std::string Printf(const char* format, double value) {
  char buf[64];
  std::snprintf(buf, sizeof buf, format, value);
  return buf;
}

template <typename T>
std::string JsonArray(std::span<const T> values) {
  std::string out = "[";
  for (size_t i = 0; i < values.size(); ++i) {
    if (i) out += ',';
    if constexpr (std::is_same_v<T, float>)
      out += JsonNumber(values[i]);
    else
      out += std::to_string(values[i]);
  }
  return out + "]";
}

}  // namespace

std::string JsonNumber(double value) {
  return Printf("%.17g", value);
}
std::string JsonNumber(float value) {
  return Printf("%.9g", value);
}

namespace {

bool IsUtf8(const std::string& text) {
  for (size_t i = 0; i < text.size();) {
    const unsigned char c = text[i];
    const size_t extra = c < 0x80         ? 0
                         : (c >> 5) == 6  ? 1
                         : (c >> 4) == 14 ? 2
                         : (c >> 3) == 30 ? 3
                                          : 9;
    if (extra == 9 || i + extra >= text.size() + (extra == 0)) return false;
    for (size_t k = 1; k <= extra; ++k)
      if ((static_cast<unsigned char>(text[i + k]) >> 6) != 2) return false;
    i += extra + 1;
  }
  return true;
}

}  // namespace

// What is not UTF-8 already is read as Latin-1, so JSON and calendars stay valid.
std::string AsUtf8(const std::string& text) {
  if (IsUtf8(text)) return text;
  std::string out;
  for (unsigned char c : text) {
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

std::string JsonString(const std::string& raw) {
  const std::string text = AsUtf8(raw);
  std::string out = "\"";
  for (unsigned char c : text) {
    if (c == '"' || c == '\\') {
      out += '\\';
      out += static_cast<char>(c);
    } else if (c < 0x20) {
      char buf[8];
      std::snprintf(buf, sizeof buf, "\\u%04x", c);
      out += buf;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out + "\"";
}

void Record::Add(const std::string& name, double value) {
  fields_.push_back({name, JsonNumber(value), Printf("%.15g", value)});
}
void Record::Add(const std::string& name, float value) {
  fields_.push_back({name, JsonNumber(value), Printf("%.7g", value)});
}
void Record::Add(const std::string& name, const std::string& text) {
  fields_.push_back({name, JsonString(text), text});
}
void Record::Add(const std::string& name, std::span<const int16_t> values) {
  fields_.push_back({name, JsonArray(values), ""});
}
void Record::Add(const std::string& name, std::span<const float> values) {
  fields_.push_back({name, JsonArray(values), ""});
}

std::string Record::Json() const {
  std::string out = "{";
  for (size_t i = 0; i < fields_.size(); ++i) {
    if (i) out += ",";
    out += "\n  " + JsonString(fields_[i].name) + ": " + fields_[i].json;
  }
  return out + "\n}\n";
}

std::string Record::Text() const {
  size_t width = 0;
  for (const Field& f : fields_) width = std::max(width, f.name.size());
  std::string out;
  for (const Field& f : fields_) {
    if (f.text.empty() && f.json.starts_with("[")) continue;
    out += f.name + std::string(width - f.name.size() + 2, ' ') + f.text + "\n";
  }
  return out;
}

}  // namespace quillmere::cli
