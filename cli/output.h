#pragma once
// A record of named values printed either as readable lines or as one JSON object whose numbers
// carry their exact binary value (%.17g for 64-bit, %.9g for 32-bit), so that every digit can
// be compared.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace quillmere::cli {

class Record {
 public:
  void Add(const std::string& name, double value);
  void Add(const std::string& name, float value);
  void Add(const std::string& name, const std::string& text);
  void Add(const std::string& name, std::span<const int16_t> values);
  void Add(const std::string& name, std::span<const float> values);

  std::string Json() const;
  // "Name  value" lines, names aligned; arrays are left to the caller's own layout.
  std::string Text() const;

 private:
  struct Field {
    std::string name;
    std::string json;
    std::string text;  // empty for arrays
  };
  std::vector<Field> fields_;
};

std::string JsonNumber(double value);
std::string JsonNumber(float value);
std::string JsonString(const std::string& text);
// 8-bit text (the mode file's Latin-1 names) as UTF-8; valid UTF-8 stands as it is.
std::string AsUtf8(const std::string& text);

}  // namespace quillmere::cli
