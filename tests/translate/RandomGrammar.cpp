#include "RandomGrammar.h"

std::size_t RandomGrammar::Below(std::size_t Limit) {
  return Numbers() % Limit;
}

std::string RandomGrammar::Of(const std::string& Letters) {
  return std::string(1, Letters[Below(Letters.size())]);
}

/// Labels; `KindsReturn` gets a letter for each place, and a blank for each literal.
std::string RandomGrammar::Sequence(std::size_t Size, const std::string& Places,
                                    std::string& KindsReturn) {
  std::string Text;
  for (std::size_t Index = 0; Index < Size; ++Index) {
    const bool IsLiteral = Below(4) == 0;
    const std::string Label = IsLiteral ? Of("abc") : Of(Places);
    KindsReturn += IsLiteral ? " " : Label;
    Text += (Index == 0 ? "" : " ") + (IsLiteral ? '"' + Label + '"' : Label);
  }
  return Text;
}

/// Each target place gets a source place, if there is one; sometimes another line more.
std::string RandomGrammar::Alignments(const std::string& Source, const std::string& Target) {
  std::string Text;
  for (std::size_t Y = 0; Y < Target.size(); ++Y) {
    const std::size_t X = Below(Source.size());
    Text += "(X" + std::to_string(X + 1) + "::Y" + std::to_string(Y + 1) + ")\n";
  }
  if (Below(6) == 0) {
    Text += "(X" + std::to_string(Below(Source.size()) + 1) + "::Y" +
            std::to_string(Below(Target.size()) + 1) + ")\n";
  }
  return Text;
}

std::string RandomGrammar::Path(char Side, std::size_t Size) {
  std::string Text = Side + std::to_string(Below(Size + 1));
  if (Below(5) != 0) {
    Text = '(' + Text + ' ' + Of("fgh") + (Below(4) == 0 ? ' ' + Of("fgh") : "") + ')';
  }
  return Text;
}

std::string RandomGrammar::Constraint(std::size_t SourceSize, std::size_t TargetSize) {
  const auto AnyPath = [&] {
    const bool IsSource = Below(2) == 0;
    return IsSource ? Path('x', SourceSize) : Path('y', TargetSize);
  };
  std::string Left = AnyPath();
  if (Left.front() != '(' || Below(3) == 0) {
    return '(' + Left + " = " + AnyPath() + ")\n";
  }
  switch (Below(5)) {
    case 0:
      return '(' + Left + " = (*OR* " + Of("pqr") + ' ' + Of("pqr") + "))\n";
    case 1:
      return '(' + Left + " = (*NOT* " + Of("pqr") + "))\n";
    default:
      return '(' + Left + " == " + Of("pqr") + ")\n";
  }
}

std::string RandomGrammar::Rule(bool IsLexical) {
  const std::string Types = "ABC";
  std::string Source;
  std::string Target;
  std::string Left;
  std::string Right;
  if (IsLexical) {
    Source = Target = " ";
    Left = '"' + Of("abc") + '"';
    Right = '"' + Of("xyz") + '"';
  } else {
    Left = Sequence(1 + Below(3), Types, Source);
    Right = Sequence(1 + Below(3), Types, Target);
  }
  std::string Text = ";;Score: " + std::to_string(1 + Below(3)) + '\n';
  Text += Of(Types) + "::" + Of(Types) + " : [" + Left + "] -> [" + Right + "]\n(\n";
  Text += Alignments(Source, Target);
  for (std::size_t Count = Below(4); Count > 0; --Count) {
    Text += Constraint(Source.size(), Target.size());
  }
  return Text + ")\n";
}

std::string RandomGrammar::Grammar() {
  std::string Text;
  for (std::size_t Count = 4 + Below(6); Count > 0; --Count) {
    Text += Rule(true);
  }
  for (std::size_t Count = 4 + Below(24); Count > 0; --Count) {
    Text += Rule(false);
  }
  return Text;
}

std::string RandomGrammar::Text(const std::string& Letters) {
  std::string Words;
  for (std::size_t Count = 1 + Below(4); Count > 0; --Count) {
    Words += (Words.empty() ? "" : " ") + Of(Letters);
  }
  return Words;
}
