// Runs a fuzz target once over every file given, and over every file below each folder given.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <vector>

#include "fuzz/fuzz_target.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesOf(const fs::path& path) {
  if (!fs::is_directory(path)) return {path};
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

bool Replay(const fs::path& file) {
  // Before the run, so that the last line names the input of a crash.
  std::printf("%s\n", file.c_str());
  std::fflush(stdout);
  std::ifstream stream(file, std::ios::binary);
  const std::vector<char> content{std::istreambuf_iterator<char>(stream), {}};
  if (!stream.is_open() || stream.bad()) {
    std::fprintf(stderr, "cannot read %s\n", file.c_str());
    return false;
  }
  // Of exactly its size, so that a sanitizer sees reads beyond the end.
  const std::unique_ptr<uint8_t[]> input(new uint8_t[content.size()]);
  std::copy(content.begin(), content.end(), input.get());
  LLVMFuzzerTestOneInput(input.get(), content.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const fs::path& file : FilesOf(argv[i])) {
      if (!Replay(file)) return 1;
      ++count;
    }
  }
  std::printf("%zu inputs run\n", count);
  return count == 0 ? 1 : 0;
}
