// libFuzzer target for the mode file reader: any bytes as a mode file. The reader must come back
// with a table that holds together, never crash, hang or read past the end.

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "stormmodel/mode_table.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string path = "/tmp/quillmere-fuzz-" + std::to_string(::getpid()) + ".JMF";
  std::FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) return 0;
  std::fwrite(data, 1, size, f);
  std::fclose(f);

  quillmere::ModeTable table;
  const quillmere::ModeFileResult r = quillmere::LoadModeFile(path, table);
  const bool loaded = table.ModesLoaded != 0;
  if (loaded == r.error.has_value()) std::abort();
  if (loaded && (table.ModeCount < 1 || table.ModeCount > quillmere::kModeRecords)) std::abort();
  if (quillmere::UsableModes(table) > quillmere::kActivityModes) std::abort();
  return 0;
}
