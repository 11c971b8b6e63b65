#pragma once

#include "RuleReader.h"
#include "RuleSet.h"
#include "RuleUse.h"
#include "StructureText.h"
#include "TranslationWriter.h"
#include "Translator.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

/// What tests of the engine share: grammars and texts in, texts out.

/// The rules of a grammar text, parsed, and what is wrong with those that are left out.
class ReadGrammar {
 public:
  explicit ReadGrammar(const std::string& Text, bool IsReversed = false) {
    std::istringstream Stream(Text);
    Grammar::RuleReader Reader(Stream, "a.trr");
    std::uint32_t Number = 0;
    for (Grammar::RuleText Rule; Reader.Next(Rule);) {
      if (Rule.HasRule && !Rule.Continues) {
        Texts.push_back(Rule);
        Grammar::SourceRule Lines;
        Grammar::UsableRule Parts;
        ++Number;
        if (ReadUsableRule(Texts.back(), IsReversed, Lines, Parts, vFindings)) {
          vRules.push_back(Parts);
          vNumbers.push_back(Number);
        }
      }
    }
  }

  ReadGrammar(const ReadGrammar&) = delete;
  ReadGrammar& operator=(const ReadGrammar&) = delete;

  std::deque<Grammar::RuleText> Texts;  // the rules point into them
  std::vector<Grammar::UsableRule> vRules;
  std::vector<std::uint32_t> vNumbers;
  std::vector<Grammar::Finding> vFindings;
};

/// A grammar, and an engine for it.
///
///   TestEngine Engine("N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n");
///   Engine.Plain("car");  // "auto\n"
class TestEngine {
 public:
  explicit TestEngine(const std::string& Text, Translate::RuleSetOptions Options = {})
      : Read(Text, Options.IsReversed), Rules(FilledWith(Read, Options)), Engine(Rules.Set) {}

  /// What is written of a text in some form.
  std::string Written(const std::string& Text, const Translate::TextOptions& Options,
                      const Translate::WriterOptions& Form) {
    std::string Out;
    Translate::TranslationWriter Writer(Rules.Set, Engine, Form);
    Writer.Append(Text, Engine.Translate(Text, Options), Out);
    return Out;
  }

  /// The best translation, on a line.
  std::string Plain(const std::string& Text) { return Written(Text, {}, {}); }

  /// All derivations, with scores, a line each, and an empty line after.
  std::string All(const std::string& Text) {
    Translate::WriterOptions Form;
    Form.IsList = true;
    return Written(Text, AllDerivations(), Form);
  }

  /// All derivations with their trees and structures.
  std::string Json(const std::string& Text) {
    Translate::WriterOptions Form;
    Form.Format = Translate::TextFormat::Json;
    return Written(Text, AllDerivations(), Form);
  }

  static Translate::TextOptions AllDerivations() {
    Translate::TextOptions Options;
    Options.AllDerivations = true;
    Options.Translations = std::numeric_limits<std::uint64_t>::max();
    return Options;
  }

  const Translate::RuleSet& Set() const { return Rules.Set; }

 private:
  struct Filled {
    Filled(const ReadGrammar& Read, Translate::RuleSetOptions Options) : Set(Options) {
      for (std::size_t Index = 0; Index < Read.vRules.size(); ++Index) {
        Set.Add(Read.vRules[Index], Read.vNumbers[Index]);
      }
      Set.Finish();
    }
    Translate::RuleSet Set;
  };

  static Filled FilledWith(const ReadGrammar& Read, Translate::RuleSetOptions Options) {
    return Filled(Read, Options);
  }

 public:
  ReadGrammar Read;

 private:
  Filled Rules;

 public:
  Translate::Translator Engine;
};

/// Names a rule by its number, from 1, in the order of the input.
using RuleName = std::function<std::string(std::uint32_t Number)>;

/// A derivation as a text: its score, its words, and the tree of its rules, each with S and T.
///
///   -1386294 el auto 1{"NUM":"SG"}{}(2{}{}()3{"NUM":"SG"}{}())
inline std::string DerivationText(
    TestEngine& Grammar, const Translate::Translation& Best,
    const RuleName& Name = [](std::uint32_t Number) { return std::to_string(Number); }) {
  Translate::StructureText Structures(Grammar.Set(), Grammar.Engine.Structures(),
                                      Grammar.Engine.Atoms());
  std::string Text = std::to_string(Best.Score) + ' ' + Best.Target + ' ';
  std::vector<std::uint32_t> vLeft;
  for (const Translate::TreeNode& Node : Grammar.Engine.NodesOf(Best.Tree, 0)) {
    Text += Name(Grammar.Set().At(Node.Rule).Number);
    Structures.AppendJson(Node.Structures.Source, Text);
    Structures.AppendJson(Node.Structures.Target, Text);
    Text += '(';
    vLeft.push_back(Node.Parts);
    while (!vLeft.empty() && vLeft.back() == 0) {
      Text += ')';
      vLeft.pop_back();
      if (!vLeft.empty()) {
        --vLeft.back();
      }
    }
  }
  return Text;
}

/// The derivations that were given for a text, in their order.
inline std::vector<std::string> DerivationTexts(
    TestEngine& Grammar, const Translate::TextResult& Result,
    const RuleName& Name = [](std::uint32_t Number) { return std::to_string(Number); }) {
  std::vector<std::string> vsTexts;
  for (const Translate::Translation& Best : Result.vTranslations) {
    vsTexts.push_back(DerivationText(Grammar, Best, Name));
  }
  return vsTexts;
}
