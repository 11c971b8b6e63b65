#include "RandomRules.h"

#include <vector>

namespace {

const std::vector<std::string>& Labels() {
  static const std::vector<std::string> vsLabels{"N",
                                                 "DET",
                                                 "adj",
                                                 "\"the\"",
                                                 "\"\"",
                                                 "\"<a>&b\"",
                                                 "NounPhraseWithAVeryLongLabelOfItsOwn",
                                                 "\"名詞\"",
                                                 "動詞",
                                                 "اسم",
                                                 "\"כתב\"",
                                                 "संज्ञा",
                                                 "\"q\xCC\x88\"",
                                                 "bad\xFF"
                                                 "byte",
                                                 "WWWWWW"};
  return vsLabels;
}

std::string Node(RandomInput& Random, std::size_t SLSize, std::size_t TLSize) {
  const bool IsSource = Random.Below(2) == 0;
  const std::size_t Size = IsSource ? SLSize : TLSize;
  const bool IsMissing = Random.Below(20) == 0;
  const std::size_t Index = IsMissing ? Size + 1 : Random.Below(Size + 1);
  return (IsSource ? "x" : "y") + std::to_string(Index);
}

std::string Path(RandomInput& Random, const std::string& OfNode) {
  static const std::vector<std::string> vsFeatures{"num", "agr gen", "a b  c", "case", "f\xC3\xA9"};
  const std::string Feature = Random.Pick(vsFeatures);
  return "(" + OfNode + " " + Feature + ")";
}

std::string Constraint(RandomInput& Random, std::size_t SLSize, std::size_t TLSize) {
  const std::string Left = Node(Random, SLSize, TLSize);
  const std::string Right = Node(Random, SLSize, TLSize);
  const std::string LeftPath = Path(Random, Left);
  const std::string RightPath = Path(Random, Right);
  switch (Random.Below(9)) {
    case 0:
      return "(" + Left + " = " + Right + ")";
    case 1:
      return "(" + Left + " == " + RightPath + ")";
    case 2:
      return "(" + LeftPath + " = (*OR* sg pl <x>))";
    case 3:
      return "(" + LeftPath + " = (*NOT* sg 複数))";
    case 4:
      return "(" + LeftPath + " = +)";
    case 5:
      return "(" + LeftPath + " = " + Right + ")";
    case 6:
      return "((x1 num = sg)";
    default:
      return "(" + LeftPath + " = " + RightPath + ")";
  }
}

std::string Sequence(RandomInput& Random, std::size_t Size) {
  std::string Written;
  for (std::size_t Index = 0; Index < Size; ++Index) {
    Written += (Index == 0 ? "" : " ") + Random.Pick(Labels());
  }
  return '[' + Written + ']';
}

}  // namespace

std::string RandomRuleText(RandomInput& Random) {
  const std::size_t SLSize = 1 + Random.Below(6);
  const std::size_t TLSize = 1 + Random.Below(6);
  std::string Text = Random.Below(2) == 0 ? ";;SL: هذا كتاب <b> & more\n;;TL: 這是一本書\n" : "";
  Text += Random.Below(3) == 0 ? "" : "{NP," + std::to_string(Random.Below(100)) + "}\n";
  Text += "NP::NP : " + Sequence(Random, SLSize);
  Text += " -> " + Sequence(Random, TLSize) + "\n(\n";
  for (std::size_t Count = Random.Below(7); Count > 0; --Count) {
    const std::size_t X = 1 + Random.Below(SLSize + (Random.Below(20) == 0 ? 1 : 0));
    Text += "(X" + std::to_string(X);
    Text += "::Y" + std::to_string(1 + Random.Below(TLSize)) + ")\n";
  }
  for (std::size_t Count = Random.Below(13); Count > 0; --Count) {
    Text += Constraint(Random, SLSize, TLSize) + '\n';
  }
  return Text + ")\n";
}
