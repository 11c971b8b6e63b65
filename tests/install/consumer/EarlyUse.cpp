#include <TrRule.h>

#include <string>

// A user's program that uses the library before its main function runs. It includes nothing else
// that would construct the streams.
namespace {

bool UseEarly() {
  GlobalParams::L2 = "Spanish";
  GlobalParams::ssRelevantTypes.insert("NP");
  GlobalParams::ssRelevantTypes.insert("VP");
  TrRule Rule;
  const bool Read = Rule.SetTrRuleFromString(
      "{NP,3}\n"
      "NP::NP : [ADJ N] -> [N ADJ]\n"
      "(\n"
      "(X1::Y2)\n"
      "(X2::Y1)\n"
      "((x2 num) = (*OR* sg pl))\n"
      ")\n");
  Rule.Print();
  return Read;
}

const bool Read = UseEarly();

/// Its destructor finds the settings intact: they are destroyed after everything that came later.
struct Farewell {
  ~Farewell() {
    std::cout << "at the end: " << GlobalParams::L2 << ' ' << GlobalParams::ssRelevantTypes.size()
              << '\n';
  }
};

const Farewell AtTheEnd;

}  // namespace

int main() {
  std::cout << "read: " << Read << '\n';
  std::cout << "language: " << GlobalParams::L2 << '\n';
  for (const std::string& sType : GlobalParams::ssRelevantTypes) {
    std::cout << "type: " << sType << '\n';
  }
}
