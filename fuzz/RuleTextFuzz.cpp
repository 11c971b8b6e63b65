#include "TrRule.h"

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <stdexcept>
#include <streambuf>
#include <string>

namespace {

// What the library prints is of no interest here, only that it survives printing it.
class Nowhere : public std::streambuf {
 protected:
  int_type overflow(int_type Byte) override { return traits_type::not_eof(Byte); }
  std::streamsize xsputn(const char*, std::streamsize Size) override { return Size; }
};

class SilentStreams {
 public:
  SilentStreams() : OldOut(std::cout.rdbuf(&Sink)), OldErr(std::cerr.rdbuf(&Sink)) {}
  ~SilentStreams() {
    std::cout.rdbuf(OldOut);
    std::cerr.rdbuf(OldErr);
  }
  SilentStreams(const SilentStreams&) = delete;
  SilentStreams& operator=(const SilentStreams&) = delete;

 private:
  Nowhere Sink;
  std::streambuf* OldOut;
  std::streambuf* OldErr;
};

void Throw(HaltReason, const std::string& Message) {
  throw std::runtime_error(Message);
}

// A text that ends the process by rights is no finding: the rule lives on and is used further.
template <typename Operation>
void Try(Operation Run) {
  try {
    Run();
  } catch (const std::runtime_error&) {
  }
}

void ReadAndWrite(const std::string& Text) {
  TrRule Rule;
  Try([&] { Rule.SetTrRuleFromString(Text); });
  Try([&] { Rule.Print(); });
  Try([&] { Rule.ReturnAsStringForPrint(); });
  Try([&] { Rule.ReturnAsStringForPrintNoConstraints(); });
  Try([&] { Rule.ReturnAsStringWithAllAlts(); });
  Try([&] { Rule.ReturnAsStringForComparison(); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  SetHaltHandler(Throw);
  const SilentStreams Silence;
  ReadAndWrite(std::string(Data, Data + Size));
  return 0;
}
