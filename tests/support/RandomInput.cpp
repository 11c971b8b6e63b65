#include "support/RandomInput.h"

#include <cstdlib>

unsigned RandomInput::Seed() {
  constexpr unsigned UsualSeed = 20411;
  const char* Given = std::getenv("TRRULE_TEST_SEED");
  return Given == nullptr ? UsualSeed : static_cast<unsigned>(std::strtoul(Given, nullptr, 10));
}

std::string RandomInput::TextOf(const std::string& Alphabet, std::size_t MaxLength) {
  std::string Text(Below(MaxLength + 1), ' ');
  for (char& Byte : Text) {
    Byte = Pick(Alphabet);
  }
  return Text;
}

std::string RandomInput::Damaged(std::string Text, const std::string& Bytes) {
  for (std::size_t Change = 1 + Below(4); Change > 0 && !Text.empty(); --Change) {
    const std::size_t Place = Below(Text.size());
    const std::size_t Lost = Below(2);
    const std::size_t Added = Below(2);
    Text.replace(Place, Lost, Added, Pick(Bytes));
  }
  return Text;
}

std::string RandomInput::WordsOf(const std::vector<std::string>& vsWords, std::size_t MaxCount) {
  std::string Text;
  for (std::size_t Left = Below(MaxCount + 1); Left > 0; --Left) {
    Text += Pick(vsWords);
  }
  return Text;
}
