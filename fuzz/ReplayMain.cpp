#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size);

// Stands in for the fuzzer's own entry point: hands each file named on the command line to the
// target, once.
int main(int ArgumentCount, char** Arguments) {
  for (int I = 1; I < ArgumentCount; ++I) {
    std::ifstream File(Arguments[I], std::ios::binary);
    if (!File) {
      std::cerr << "cannot read " << Arguments[I] << '\n';
      return 1;
    }
    const std::string Bytes((std::istreambuf_iterator<char>(File)), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(Bytes.data()), Bytes.size());
  }
  return 0;
}
