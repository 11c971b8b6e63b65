#include "LibraryScope.h"

namespace Grammar {

namespace {

/// Keeps what is written to it.
class Collector : public std::streambuf {
 public:
  std::string Text;

 protected:
  int_type overflow(int_type Byte) override {
    if (!traits_type::eq_int_type(Byte, traits_type::eof())) {
      Text += traits_type::to_char_type(Byte);
    }
    return traits_type::not_eof(Byte);
  }

  std::streamsize xsputn(const char* Bytes, std::streamsize Size) override {
    Text.append(Bytes, static_cast<std::size_t>(Size));
    return Size;
  }
};

/// One for all scopes: making a stream buffer costs more than reading a small rule.
Collector& TheCollector() {
  static Collector Messages;
  return Messages;
}

[[noreturn]] void Throw(HaltReason What, const std::string& Message) {
  throw LibraryHalt(What, Message);
}

}  // namespace

LibraryScope::LibraryScope()
    : OldOut(std::cout.rdbuf(&TheCollector())),
      OldErr(std::cerr.rdbuf(&TheCollector())),
      OldHandler(SetHaltHandler(Throw)) {
  TheCollector().Text.clear();
}

LibraryScope::~LibraryScope() {
  SetHaltHandler(OldHandler);
  std::cerr.rdbuf(OldErr);
  std::cout.rdbuf(OldOut);
}

const std::string& LibraryScope::Messages() const {
  return TheCollector().Text;
}

}  // namespace Grammar
