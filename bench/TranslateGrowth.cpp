// What translating costs as texts and grammars grow; listed and run like trrule-growth.

#include "GrowthCase.h"
#include "Translator.h"
#include "support/RuleSetText.h"

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Growth::Case;
using Growth::Cubic;
using Growth::Linear;
using Growth::Quadratic;
using Growth::Work;

void Load(const std::string& Text, Translate::RuleSet& RulesReturn) {
  AddRules(Text, RulesReturn, [](bool, const std::vector<Grammar::Finding>&) {});
}

/// Loading a grammar.
Work LoadGrammar(const std::string& Text) {
  return [Text] {
    Translate::RuleSet Rules({});
    Load(Text, Rules);
  };
}

/// Translating a text; loading the grammar does not count.
Work TranslateText(const std::string& Grammar, const std::string& Text,
                   const Translate::TextOptions& Options = {}) {
  const auto Rules = std::make_shared<Translate::RuleSet>(Translate::RuleSetOptions());
  Load(Grammar, *Rules);
  return [Rules, Text, Options] { Translate::Translator(*Rules).Translate(Text, Options); };
}

std::string Repeated(const std::string& Word, int Count) {
  std::string Text;
  for (int Index = 0; Index < Count; ++Index) {
    Text += Word + ' ';
  }
  return Text;
}

/// A rule with one place or literal on each side.
std::string Single(const std::string& Type, const std::string& Source, const std::string& Target,
                   const std::string& Constraints = "") {
  return Type + "::" + Type + " : [" + Source + "] -> [" + Target + "]\n(\n(X1::Y1)\n" +
         Constraints + ")\n";
}

const std::string Ambiguous =
    "S::S : [S S] -> [S S]\n(\n(X1::Y1)\n(X2::Y2)\n)\n" + Single("S", "\"a\"", "\"x\"");

const std::string OneWay =
    "S::S : [A S] -> [A S]\n(\n(X1::Y1)\n(X2::Y2)\n((x1 num) = (x2 num))\n(x0 = x2)\n)\n" +
    Single("S", "\"e\"", "\"z\"", "((x0 num) = sg)\n") +
    Single("A", "\"a\"", "\"x\"", "((x0 num) = (*OR* sg pl))\n");

/// Rules for words that no text has, and with labels that nothing else has.
std::string OtherRules(int Count) {
  std::string Text;
  for (int Number = 1; Number <= Count; ++Number) {
    const std::string Digits = std::to_string(Number);
    Text += Single('L' + Digits, "\"w" + Digits + '"', "\"v\"", "((x0 num) = sg)\n");
    Text += "M::M : [\"w" + Digits + "\" S L" + Digits + "] -> [S]\n(\n(X2::Y1)\n)\n";
  }
  return Text;
}

// ---- Texts ------------------------------------------------------------------------------------

Work TranslateAmbiguous(int Size) {
  return TranslateText(Ambiguous, Repeated("a", Size));
}

Work CountAmbiguous(int Size) {
  Translate::TextOptions Options;
  Options.WantsCount = true;
  return TranslateText(Ambiguous, Repeated("a", Size), Options);
}

Work TranslateOneWay(int Size) {
  return TranslateText(OneWay, Repeated("a", Size) + 'e');
}

Work TranslateUnknownWords(int Size) {
  return TranslateText(OneWay, Repeated("u", Size));
}

/// A structure that is as deep as the text is long.
Work TranslateDeepStructure(int Size) {
  return TranslateText("S::S : [\"a\" S] -> [S]\n(\n(X2::Y1)\n((x0 f) = x2)\n(y0 = x0)\n)\n" +
                           Single("S", "\"e\"", "\"z\"", "((x0 num) = sg)\n"),
                       Repeated("a", Size) + 'e');
}

Work FindManyTranslations(int Size) {
  Translate::TextOptions Options;
  Options.Translations = static_cast<std::uint64_t>(Size);
  Options.AllDerivations = true;
  return TranslateText(Ambiguous, Repeated("a", 12), Options);
}

// ---- Grammars ---------------------------------------------------------------------------------

Work LoadRules(int Size) {
  return LoadGrammar(OtherRules(Size));
}

Work TranslateAmongOthers(int Size) {
  return TranslateText(Ambiguous + OneWay + OtherRules(Size), Repeated("a", 12) + 'e');
}

/// As many rules that end with one word, which all make the same constituent.
Work TranslateByManyRules(int Size) {
  std::string Grammar;
  for (int Number = 0; Number < Size; ++Number) {
    Grammar += Single("A", "\"a\"", "\"x" + std::to_string(Number) + '"');
  }
  return TranslateText(Grammar, "a");
}

Work LoadConstraints(int Size) {
  std::string Constraints;
  for (int Number = 0; Number < Size; ++Number) {
    const std::string Digits = std::to_string(Number);
    Constraints += "((x0 f" + Digits + ") = p)\n((x0 f" + Digits + ") = q)\n";
  }
  return LoadGrammar(Single("A", "\"a\"", "\"x\"", Constraints));
}

Work ApplyConstraints(int Size) {
  std::string Constraints;
  for (int Number = 0; Number < Size; ++Number) {
    const std::string Digits = std::to_string(Number);
    Constraints += "((x0 f) = (x0 f" + Digits + "))\n((y0 g" + Digits + ") = (y0 h))\n";
  }
  return TranslateText(Single("A", "\"a\"", "\"x\"", Constraints), "a");
}

const std::vector<Case>& Cases() {
  static const std::vector<Case> vCases = {
      {"translate an ambiguous text", 20, Cubic, TranslateAmbiguous},
      {"count an ambiguous text", 20, Cubic, CountAmbiguous},
      {"translate a text in one way", 50, Quadratic, TranslateOneWay},
      {"translate unknown words", 500, Linear, TranslateUnknownWords},
      {"translate to a deep structure", 50, Linear, TranslateDeepStructure},
      {"find many translations", 100, Linear, FindManyTranslations},
      {"load a grammar", 500, Linear, LoadRules},
      {"translate among other rules", 500, Growth::None, TranslateAmongOthers},
      {"translate by many rules", 500, Linear, TranslateByManyRules},
      {"load many constraints", 250, Linear, LoadConstraints},
      // The features of one node are a list, since there are few; a rule has 100,000 bytes at most.
      {"apply many constraints", 100, Quadratic, ApplyConstraints},
  };
  return vCases;
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
  return Growth::RunCases(ArgumentCount, Arguments, Cases());
}
