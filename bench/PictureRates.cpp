// The cost of pictures: draws generated rules on one thread, and reports how many in a second of
// processor time, with reading them. Each figure stands on a line after its name.
//
//   trrule-picture-rates COUNT

#include "RuleGenerator.h"
#include "RulePicture.h"
#include "RuleReader.h"
#include "SourceRule.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr std::uint64_t Seed = 7;

/// Draws all rules in one form. @param Append adds the picture to a text
template <typename AppendT>
void Measure(const char* Name, const std::vector<std::string>& vsRules, AppendT Append) {
  Picture::RulePicture Drawn;
  Grammar::SourceRule Lines;
  Grammar::RuleText Text;
  std::string Written;
  std::size_t Bytes = 0;
  const std::clock_t Start = std::clock();
  for (const std::string& sRule : vsRules) {
    Grammar::RuleReader(sRule).Next(Text);
    Lines.Read(Text);
    Written.clear();
    if (Drawn.Read(Lines)) {
      Append(Drawn, Written);
    }
    Bytes += Written.size();
  }
  const double Seconds = static_cast<double>(std::clock() - Start) / CLOCKS_PER_SEC;
  const auto Count = static_cast<double>(vsRules.size());
  std::cout << Name << " pictures a second\t" << static_cast<std::uint64_t>(Count / Seconds) << '\n'
            << Name << " bytes a picture\t" << Bytes / vsRules.size() << '\n';
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
  const long Count = ArgumentCount == 2 ? std::atol(Arguments[1]) : 0;
  if (Count < 1) {
    std::cerr << "usage: trrule-picture-rates COUNT\n";
    return 2;
  }
  constexpr int Width = 200;
  const std::vector<std::string> vsRules = GeneratedRules(Seed, static_cast<std::size_t>(Count));
  Measure("svg", vsRules, [](Picture::RulePicture& Drawn, std::string& WrittenReturn) {
    Drawn.AppendSvg(false, WrittenReturn);
  });
  Measure("text", vsRules, [](Picture::RulePicture& Drawn, std::string& WrittenReturn) {
    Drawn.AppendText(Width, false, WrittenReturn);
  });
  return 0;
}
