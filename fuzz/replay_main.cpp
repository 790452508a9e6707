// Stands in for a fuzzer: runs the target on all files of folders, then on RANDOM_INPUTS inputs
// that are the same in every run: random bytes, and the files with some of their bytes changed.
#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

std::string running;  // the input of which a failure is

Input readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
  return Input(bytes.begin(), bytes.end());
}

/// Exactly sized and on the heap, so that a sanitizer sees a read past the end.
void runOn(const Input& input) {
  LLVMFuzzerTestOneInput(input.data(), input.size());
}

Input randomInput(std::mt19937& random, const std::vector<Input>& corpus) {
  Input input;
  if (random() % 2 == 0) input = corpus[random() % corpus.size()];
  const std::size_t changes = input.empty() ? random() % 300 : 1 + random() % 8;
  if (input.empty()) input.resize(changes);
  for (std::size_t i = 0; i < changes; ++i) {
    input[random() % input.size()] = static_cast<std::uint8_t>(random());
  }
  return input;
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGABRT, [](int) { std::fprintf(stderr, "input: %s\n", running.c_str()); });
  std::vector<std::filesystem::path> paths;
  for (int i = 1; i < argc; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) paths.push_back(entry);
  }
  if (paths.empty()) return 1;
  std::sort(paths.begin(), paths.end());  // a folder has no order of its own
  std::vector<Input> corpus;
  for (const auto& path : paths) corpus.push_back(readFile(path));
  for (std::size_t i = 0; i < corpus.size(); ++i) {
    running = paths[i];
    runOn(corpus[i]);
  }
  std::mt19937 random(1);
  for (int i = 0; i < RANDOM_INPUTS; ++i) {
    running = "random input " + std::to_string(i);
    runOn(randomInput(random, corpus));
  }
  std::fprintf(stderr, "%zu files and %d random inputs replayed\n", corpus.size(), RANDOM_INPUTS);
  return 0;
}
