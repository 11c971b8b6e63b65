// The mistakes that people make when they type rules, each with the findings that it deserves, and
// what becomes of a line that is replaced by what was suggested.

#include "CheckCommand.h"
#include "GrammarPaths.h"
#include "GrammarSupport.h"
#include "ProgramRun.h"
#include "RuleGenerator.h"
#include "TestFolder.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Grammar::Finding;

/// A line as somebody typed it, and all that is found in its rule: each finding with its place,
/// severity, code and wording, and what to write instead.
struct Mistake {
  std::string Line;
  std::string Findings;
};

std::string Described(const std::vector<Finding>& vFindings) {
  std::string Text;
  for (const Finding& Found : vFindings) {
    Text += std::to_string(Found.Line) + ':' + std::to_string(Found.Column) + '+' +
            std::to_string(Found.Length) + ' ';
    Text.append(NameOf(Found.Level)).append(" ").append(Found.Code).append(": ");
    Text.append(Found.Message).append("\n");
    Text += Found.Suggestion.empty() ? "" : "  instead: " + Found.Suggestion + '\n';
    Text += Found.Example.empty() ? "" : "  for example: " + Found.Example + '\n';
  }
  return Text;
}

// ---- Lines of the body ------------------------------------------------------------------------

/// The line is line 7.
std::string InBody(const std::string& Line) {
  return "{NP,8}\nNP::NP : [DET ADJ N] -> [DET N ADJ]\n(\n(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n" + Line +
         "\n)\n";
}

/// The line is line 2.
std::string AsRuleLine(const std::string& Line) {
  return "{NP,8}\n" + Line + "\n(\n(X1::Y2)\n(X2::Y1)\n)\n";
}

/// The line is line 1.
std::string AsHeader(const std::string& Line) {
  return Line + "\nNP::NP : [DET N] -> [N DET]\n(\n(X1::Y2)\n(X2::Y1)\n)\n";
}

const std::vector<Mistake>& AlignmentMistakes() {
  static const std::vector<Mistake> vMistakes{
      {"(X1:Y2)",
       "7:1+7 error TR035: this line is not part of a rule; an alignment needs \"::\"\n"
       "  instead: (X1::Y2)\n"},
      {"(X1-Y2)",
       "7:1+7 error TR035: this line is not part of a rule; an alignment needs \"::\"\n"
       "  instead: (X1::Y2)\n"},
      {"(X1,Y2)",
       "7:1+7 error TR035: this line is not part of a rule; an alignment needs \"::\"\n"
       "  instead: (X1::Y2)\n"},
      {"(X1 Y2)",
       "7:1+7 error TR035: this line is not part of a rule; an alignment needs \"::\"\n"
       "  instead: (X1::Y2)\n"},
      {"X1::Y2",
       "7:1+6 error TR007: this is not an alignment of one x with one y\n"
       "  instead: (X1::Y2)\n"},
      {"(X1::Y2",
       "7:1+7 error TR007: this is not an alignment of one x with one y\n"
       "  instead: (X1::Y2)\n"},
      {"(Y2::X1)",
       "7:1+8 error TR007: this is not an alignment of one x with one y\n"
       "  instead: (X1::Y2)\n"},
      {"(1::2)",
       "7:1+6 error TR007: this is not an alignment of one x with one y\n"
       "  instead: (X1::Y2)\n"},
      {"(Xl::Y2)",
       "7:1+8 error TR007: this is not an alignment of one x with one y\n"
       "  instead: (X1::Y2)\n"},
      {"(X1::X2)", "7:1+8 error TR007: this is not an alignment of one x with one y\n"},
      {"[X1::Y2]",
       "7:1+8 error TR007: this is not an alignment of one x with one y\n"
       "  instead: (X1::Y2)\n"},
      {"(X1::Y2) see there",
       "7:10+9 error TR035: this text is not part of a rule\n"
       "  instead: (X1::Y2) ;; see there\n"},
      {"(X1::Y2) ; see there",
       "7:10+11 error TR035: this text is not part of a rule\n"
       "  instead: (X1::Y2) ;; see there\n"},
      {"(X1::Y2),",
       "7:9+1 error TR035: this text is not part of a rule\n"
       "  instead: (X1::Y2)\n"},
      {"1. (X1::Y2)",
       "7:1+2 error TR035: this text is not part of a rule\n"
       "  instead: (X1::Y2)\n"},
      {"- (X1::Y2)",
       "7:1+1 error TR035: this text is not part of a rule\n"
       "  instead: (X1::Y2)\n"},
      {"(X1::Y2) (X2::Y1)",
       "7:1+17 error TR007: this is more than one alignment: write each on its own line\n"},
      {"(\u0425 1::Y2)", "7:1+10 error TR007: this is not an alignment of one x with one y\n"},
      {"(\u04251::Y2)",
       "7:2+2 error TR007: this is not an alignment of one x with one y; found U+0425 CYRILLIC CAPITAL LETTER HA, which looks like X\n"
       "  instead: (X1::Y2)\n"},
      {"(\u03A71::\u03A52)",
       "7:2+2 error TR007: this is not an alignment of one x with one y; found U+03A7 GREEK CAPITAL LETTER CHI, which looks like X\n"
       "  instead: (X1::Y2)\n"},
      {"(X1\uFF1A\uFF1AY2)",
       "7:4+3 error TR035: this line is not part of a rule; found U+FF1A FULLWIDTH COLON, which looks like :\n"
       "  instead: (X1::Y2)\n"},
      {"\uFF08X1::Y2\uFF09",
       "7:1+3 error TR007: this is not an alignment of one x with one y; found U+FF08 FULLWIDTH LEFT PARENTHESIS, which looks like (\n"
       "  instead: (X1::Y2)\n"},
      {"(X1\u2237Y2)",
       "7:4+3 error TR035: this line is not part of a rule; found U+2237 PROPORTION, which looks like ::\n"
       "  instead: (X1::Y2)\n"},
      {"(X\u2081::Y\u2082)",
       "7:3+3 error TR007: this is not an alignment of one x with one y; found U+2081 SUBSCRIPT ONE, which looks like 1\n"
       "  instead: (X1::Y2)\n"},
      {"(X1::Y2)\u00A0",
       "7:9+2 error TR035: this text is not part of a rule; found U+00A0 NO-BREAK SPACE, which looks like a blank\n"
       "  instead: (X1::Y2)\n"},
      {"(X1::\u200BY2)",
       "7:6+3 error TR007: this is not an alignment of one x with one y; found U+200B ZERO WIDTH SPACE, which cannot be seen\n"
       "  instead: (X1::Y2)\n"},
  };
  return vMistakes;
}

const std::vector<Mistake>& ConstraintMistakes() {
  static const std::vector<Mistake> vMistakes{
      {"((x1 num) -> sg)",
       "7:1+16 error TR035: this line is not part of a rule; a constraint needs \"=\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) : sg)",
       "7:1+15 error TR035: this line is not part of a rule; a constraint needs \"=\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) sg)",
       "7:1+13 error TR035: this line is not part of a rule; a constraint needs \"=\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) (x2 num))",
       "7:1+19 error TR035: this line is not part of a rule; a constraint needs \"=\"\n"
       "  instead: ((x1 num) = (x2 num))\n"},
      {"(x0 x3)",
       "7:1+7 error TR035: this line is not part of a rule; a constraint needs \"=\"\n"
       "  instead: (x0 = x3)\n"},
      {"((x1 num) := sg)",
       "7:11+6 error TR008: the constraint is not in the format from here on: expected \"=\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) != sg)",
       "7:11+6 error TR008: the constraint is not in the format from here on: expected \"=\"\n"},
      {"((x1 num) =c sg)",
       "7:12+1 warning TR041: the sign is read as \"=\", and \"c\" becomes part of the value: ((X1 NUM) = C SG)\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) =: sg)",
       "7:12+1 warning TR041: the sign is read as \"=\", and \":\" becomes part of the value: ((X1 NUM) = : SG)\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) => sg)",
       "7:12+1 warning TR041: the sign is read as \"=\", and \">\" becomes part of the value: ((X1 NUM) = > SG)\n"
       "  instead: ((x1 num) = sg)\n"},
      {"(x0 =c x3)",
       "7:6+4 error TR012: \"c x3\" is not a node, and only a node can equal x0\n"
       "  instead: (x0 = x3)\n"},
      {"((x1 num) = *OR* sg pl)",
       "7:13+10 warning TR042: the list has no parentheses, and is one value: ((X1 NUM) = *OR* SG PL))\n"
       "  instead: ((x1 num) = (*OR* sg pl))\n"},
      {"((x1 num) = *NOT* sg)",
       "7:13+8 warning TR042: the list has no parentheses, and is one value: ((X1 NUM) = *NOT* SG)\n"},
      {"((x1 num) = sg pl)",
       "7:13+5 warning TR043: \"sg pl\" is one value; alternatives are written as a list\n"
       "  for example: ((x1 num) = (*OR* sg pl))\n"},
      {"((x1 num) = sg|pl)",
       "7:13+5 warning TR043: \"sg|pl\" is one value; alternatives are written as a list\n"
       "  instead: ((x1 num) = (*OR* sg pl))\n"},
      {"((x1 num) = sg,pl)",
       "7:13+5 warning TR043: \"sg,pl\" is one value; alternatives are written as a list\n"
       "  instead: ((x1 num) = (*OR* sg pl))\n"},
      {"((x1 num) = (*OR* sg, pl))",
       "7:21+1 warning TR039: \",\" becomes part of a word of the list\n"
       "  instead: ((x1 num) = (*OR* sg pl))\n"},
      {"((x1 num) = (OR sg pl))",
       "7:14+10 error TR008: the constraint is not in the format from here on: expected a node and a feature, or *OR* or *NOT* and words\n"
       "  instead: ((x1 num) = (*OR* sg pl))\n"},
      {"((x1 num) = (sg pl))",
       "7:14+7 error TR008: the constraint is not in the format from here on: expected a node and a feature, or *OR* or *NOT* and words\n"},
      {"((x1 num) = (sg))",
       "7:14+4 error TR008: the constraint is not in the format from here on: expected a node and a feature, or *OR* or *NOT* and words\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) = (*OR*))",
       "7:18+2 error TR008: the constraint is not in the format from here on: expected a blank and words\n"},
      {"((x1 num = sg)",
       "7:10+5 error TR008: the constraint is not in the format from here on: expected \")\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"(x1 num = sg)",
       "7:5+9 error TR008: the constraint is not in the format from here on: expected \"=\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"(x1 num) = sg",
       "7:5+9 error TR008: the constraint is not in the format from here on: expected \"=\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"(x1 num = sg",
       "7:5+8 error TR008: the constraint is not in the format from here on: expected \"=\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) = sg",
       "7:1+14 error TR008: the constraint ends too early: expected \")\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) = sg);",
       "7:16+1 error TR008: the constraint is not in the format from here on: expected the end\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) = sg).",
       "7:16+1 error TR008: the constraint is not in the format from here on: expected the end\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) = sg) ; note",
       "7:17+6 error TR008: the constraint is not in the format from here on: expected the end\n"
       "  instead: ((x1 num) = sg) ;; note\n"},
      {"((x1 num) = sg) # note",
       "7:17+6 error TR008: the constraint is not in the format from here on: expected the end\n"
       "  instead: ((x1 num) = sg) ;; note\n"},
      {"- ((x1 num) = sg)",
       "7:1+17 error TR008: the constraint is not in the format from here on: expected \"(\"\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1) = x2)",
       "7:5+7 error TR008: the constraint is not in the format from here on: expected a blank and a feature\n"
       "  instead: (x1 = x2)\n"},
      {"(x0 = (x3))",
       "7:8+4 error TR008: the constraint is not in the format from here on: expected a node and a feature, or *OR* or *NOT* and words\n"
       "  instead: (x0 = x3)\n"},
      {"(x0 = n)",
       "7:7+1 error TR012: \"n\" is not a node, and only a node can equal x0\n"
       "  for example: ((x0 feature) = n)\n"},
      {"(x0 = (x1 tax))",
       "7:7+8 error TR012: there is no number after the last X or Y on this side, where the library looks for one\n"},
      {"(x0 = )",
       "7:7+1 error TR008: the constraint is not in the format from here on: expected a value or a node\n"},
      {"((x1.num) = sg)",
       "7:9+7 error TR008: the constraint is not in the format from here on: expected a blank and a feature\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((xl num) = sg)",
       "7:3+13 error TR008: the constraint is not in the format from here on: expected a node such as x1 or y2\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((z1 num) = sg)",
       "7:3+13 error TR008: the constraint is not in the format from here on: expected a node such as x1 or y2\n"},
      {"((x num) = sg)",
       "7:3+12 error TR008: the constraint is not in the format from here on: expected a node such as x1 or y2\n"},
      {"((x1 num) = (y2 num)) ((x2 num) = (x1 num))",
       "7:23+21 error TR008: the constraint is not in the format from here on: expected the end\n"},
      {"(x1 = x1)", "7:1+9 warning TR044: the constraint has no effect: both sides are the same\n"},
      {"((x1 num) = (x1 num))",
       "7:1+21 warning TR044: the constraint has no effect: both sides are the same\n"},
      {"((x1 n\u00FAmero) = sg)",
       "7:7+2 warning TR046: \"\u00FA\" stays small: of a feature, only the letters of ASCII become capitals: N\u00FAMERO\n"
       "  instead: ((x1 N\u00DAMERO) = sg)\n"},
      {"((\u04451 num) = sg)",
       "7:3+2 error TR008: the constraint is not in the format from here on: expected a node such as x1 or y2; found U+0445 CYRILLIC SMALL LETTER HA, which looks like x\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num)\u00A0= sg)",
       "7:10+2 error TR008: the constraint is not in the format from here on: expected \"=\"; found U+00A0 NO-BREAK SPACE, which looks like a blank\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1\u00A0num) = sg)",
       "7:5+2 error TR008: the constraint is not in the format from here on: expected a blank and a feature; found U+00A0 NO-BREAK SPACE, which looks like a blank\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) = \u201Csg\u201D)",
       "7:13+3 warning TR048: found U+201C LEFT DOUBLE QUOTATION MARK, which looks like \"\n"
       "  instead: ((x1 num) = \"sg\")\n"},
      {"((x1 num) \uFF1D sg)",
       "7:11+3 error TR035: this line is not part of a rule; found U+FF1D FULLWIDTH EQUALS SIGN, which looks like =\n"
       "  instead: ((x1 num) = sg)\n"},
      {"((x1 num) = s\u0435)",
       "7:14+2 warning TR048: found U+0435 CYRILLIC SMALL LETTER IE, which looks like e\n"
       "  instead: ((x1 num) = se)\n"},
      {"((x1 num) = (\u2217OR\u2217 sg pl))",
       "7:14+3 error TR008: the constraint is not in the format from here on: expected a node and a feature, or *OR* or *NOT* and words; found U+2217 ASTERISK OPERATOR, which looks like *\n"
       "  instead: ((x1 num) = (*OR* sg pl))\n"},
      {"((x1 agr gen) == (x3 agr gen))",
       "7:6+7 note TR025: the library makes one word of this feature, AGRGEN; trrule keeps its words\n"
       "  instead: ((x1 agrgen) = (x3 agrgen))\n"
       "7:15+2 note TR024: \"==\" is kept as \"=\"; the library's reader reads the reference after it as a value: ((X1 AGRGEN) = (X3 AGR GEN)\n"
       "  instead: ((x1 agrgen) = (x3 agrgen))\n"
       "7:22+7 note TR025: the library makes one word of this feature, AGRGEN; trrule keeps its words\n"
       "  instead: ((x1 agrgen) = (x3 agrgen))\n"},
      {"(x0 == x3 ) ;; see",
       "7:5+2 note TR024: \"==\" is kept as \"=\"\n"
       "  instead: (x0 = x3) ;; see\n"
       "7:10+1 warning TR038: the blank becomes part of the value: (X0 = X3 )\n"
       "  instead: (x0 = x3) ;; see\n"},
  };
  return vMistakes;
}

const std::vector<Mistake>& OtherMistakes() {
  static const std::vector<Mistake> vMistakes{
      {"see there",
       "7:1+9 error TR035: this line is not part of a rule\n"
       "  instead: ;; see there\n"},
      {"# note",
       "7:1+6 error TR035: this line is not part of a rule; a comment begins with \";;\"\n"
       "  instead: ;; note\n"},
      {"// note",
       "7:1+7 error TR035: this line is not part of a rule; a comment begins with \";;\"\n"
       "  instead: ;; note\n"},
      {"% note",
       "7:1+6 error TR035: this line is not part of a rule; a comment begins with \";;\"\n"
       "  instead: ;; note\n"},
      {"-- note",
       "7:1+7 error TR035: this line is not part of a rule; a comment begins with \";;\"\n"
       "  instead: ;; note\n"},
      {"/* note */",
       "7:1+10 error TR035: this line is not part of a rule; a comment begins with \";;\"\n"
       "  instead: ;; note\n"},
      {"))",
       "7:1+2 error TR035: this line is not part of a rule\n"
       "  instead: )\n"},
      {"()", "7:1+2 error TR035: this line is not part of a rule\n"},
      {"(NP,9)",
       "7:1+6 error TR035: this line is not part of a rule; a header is written {NP,9}\n"},
      {"SL: the red car",
       "7:1+15 error TR035: this line is not part of a rule\n"
       "  instead: ;; SL: the red car\n"},
      {";; SL the red car",
       "7:4+2 warning TR047: this is only a comment: the label is written \";;SL:\"\n"
       "  instead: ;; SL: the red car\n"},
      {";;sl: the red car",
       "7:3+3 warning TR047: this is only a comment: the label is written \";;SL:\"\n"
       "  instead: ;;SL: the red car\n"},
      {"; TL: el auto",
       "7:1+5 warning TR047: this is only a comment: the label is written \";;TL:\"\n"
       "  instead: ;; TL: el auto\n"},
      {";; TL : el auto",
       "7:4+4 warning TR047: this is only a comment: the label is written \";;TL:\"\n"
       "  instead: ;; TL: el auto\n"},
      {";; Score 3",
       "7:4+5 warning TR047: this is only a comment: the label is written \";;Score:\"\n"
       "  instead: ;; Score: 3\n"},
      {";; SL\uFF1A the red car",
       "7:4+5 warning TR047: this is only a comment: the label is written \";;SL:\"\n"
       "  instead: ;; SL: the red car\n"},
      {"\uFF1B\uFF1B note",
       "7:1+3 error TR035: this line is not part of a rule; found U+FF1B FULLWIDTH SEMICOLON, which looks like ;\n"
       "  instead: ;; note\n"},
  };
  return vMistakes;
}

const std::vector<Mistake>& SequenceMistakes() {
  static const std::vector<Mistake> vMistakes{
      {"NP::NP: [DET N] -> [N DET]",
       "2:7+1 warning TR039: \":\" becomes part of the type \"NP:\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP:::NP : [DET N] -> [N DET]",
       "2:5+1 warning TR039: \":\" becomes part of the type \":NP\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP:NP : [DET N] -> [N DET]",
       "2:1+5 error TR004: the line does not begin with two types, as in NP::NP\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP :: NP : [DET N] -> [N DET]",
       "2:1+2 error TR004: the line does not begin with two types, as in NP::NP\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP : [DET N] -> [N DET]",
       "2:1+2 error TR004: the line does not begin with two types, as in NP::NP\n"},
      {"[DET N] -> [N DET]",
       "2:1+4 error TR004: the line does not begin with two types, as in NP::NP\n"},
      {"{NP,1} NP::NP : [DET N] -> [N DET]",
       "2:1+6 error TR004: the line does not begin with two types, as in NP::NP\n"},
      {"NP\t::NP : [DET N] -> [N DET]",
       "2:3+1 warning TR039: a tab becomes part of the type \"NP\t\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP\t: [DET N] -> [N DET]",
       "2:7+1 warning TR039: a tab becomes part of the type \"NP\t:\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET\tN] -> [N DET]",
       "2:14+1 warning TR039: a tab becomes part of the label \"DET\tN\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"
       "5:2+2 error TR010: there is no X2: the source side has 1 component\n"},
      {"NP::NP : [DET, N] -> [N, DET]",
       "2:14+1 warning TR039: \",\" becomes part of the label \"DET,\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"
       "2:24+1 warning TR039: \",\" becomes part of the label \"N,\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET,N] -> [N DET]",
       "2:14+1 warning TR039: \",\" becomes part of the label \"DET,N\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"
       "5:2+2 error TR010: there is no X2: the source side has 1 component\n"},
      {"NP::NP : [\"the N] -> [N DET]",
       "2:11+1 warning TR039: \"\"\" becomes part of the label \"\"the\"\n"
       "  instead: NP::NP : [\"the\" N] -> [N DET]\n"},
      {"NP::NP : [\"the car\"] -> [N DET]",
       "2:11+1 warning TR039: \"\"\" becomes part of the label \"\"the\"\n"
       "  instead: NP::NP : [\"the\" \"car\"] -> [N DET]\n"
       "2:19+1 warning TR039: \"\"\" becomes part of the label \"car\"\"\n"
       "  instead: NP::NP : [\"the\" \"car\"] -> [N DET]\n"},
      {"NP::NP : ['the' N] -> [N DET]",
       "2:11+1 warning TR039: \"'\" becomes part of the label \"'the'\"\n"
       "  instead: NP::NP : [\"the\" N] -> [N DET]\n"},
      {"NP::NP : [\u201Cthe\u201D N] -> [N DET]",
       "2:11+3 warning TR048: found U+201C LEFT DOUBLE QUOTATION MARK, which looks like \"\n"
       "  instead: NP::NP : [\"the\" N] -> [N DET]\n"},
      {"NP::NP : [DET N]] -> [N DET]",
       "2:16+1 warning TR039: \"]\" becomes part of the label \"N]\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [[DET N] -> [N DET]",
       "2:11+1 warning TR039: \"[\" becomes part of the label \"[DET\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] -> [N DET]]",
       "2:27+1 warning TR039: \"]\" becomes part of the label \"DET]\"\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : DET N] -> [N DET]",
       "2:1+15 error TR005: the source side is not a [sequence of labels]\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] -> [N DET",
       "2:21+6 error TR006: the target side is not a [sequence of labels]\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] -> N DET]",
       "2:17+4 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : DET N -> N DET",
       "2:15+4 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : (DET N) -> (N DET)",
       "2:17+4 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : {DET N} -> {N DET}",
       "2:17+4 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N]->[N DET]",
       "2:17+2 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] > [N DET]",
       "2:17+3 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] => [N DET]",
       "2:17+4 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] --> [N DET]",
       "2:17+5 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] <- [N DET]",
       "2:18+2 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"},
      {"NP::NP : [DET N]\t->\t[N DET]",
       "2:17+4 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N]  ->  [N DET]",
       "2:17+6 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] [N DET]",
       "2:16+3 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] \u2192 [N DET]",
       "2:18+3 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt; found U+2192 RIGHTWARDS ARROW, which looks like ->\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET N] \u2013> [N DET]",
       "2:18+3 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt; found U+2013 EN DASH, which looks like -\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"[DET N] => [N DET]",
       "2:8+4 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt\n"},
      {"NP::NP : [DET N] -> []",
       "2:21+2 error TR006: the target side is not a [sequence of labels]\n"},
      {"NP::NP : [DET N] -> [N DET] see",
       "2:29+3 error TR035: this text is not part of a rule\n"
       "  instead: NP::NP : [DET N] -> [N DET] ;; see\n"},
      {"NP::NP : [DET N] -> [N DET];",
       "2:28+1 error TR035: this text is not part of a rule\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP see : [DET N] -> [N DET]",
       "2:8+5 error TR035: this text is not part of a rule\n"
       "  instead: NP::NP : [DET N] -> [N DET] ;; see\n"},
      {"NP\u2237NP : [DET N] -> [N DET]",
       "2:3+3 error TR004: the line does not begin with two types, as in NP::NP; found U+2237 PROPORTION, which looks like ::\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP\uFF1A\uFF1ANP : [DET N] -> [N DET]",
       "2:3+3 error TR004: the line does not begin with two types, as in NP::NP; found U+FF1A FULLWIDTH COLON, which looks like :\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [D\u0415T N] -> [N DET]",
       "2:12+2 warning TR048: found U+0415 CYRILLIC CAPITAL LETTER IE, which looks like E\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [DET\u00A0N] -> [N DET]",
       "2:14+2 warning TR048: found U+00A0 NO-BREAK SPACE, which looks like a blank\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"
       "5:2+2 error TR010: there is no X2: the source side has 1 component\n"},
      {"NP::NP : [DET N]\u00A0-> [N DET]",
       "2:17+2 error TR001: the rule has no rule line: the \"] -> [\" of this line is misspelt; found U+00A0 NO-BREAK SPACE, which looks like a blank\n"
       "  instead: NP::NP : [DET N] -> [N DET]\n"},
      {"NP::NP : [d\u00E9t N] -> [N DET]",
       "2:12+2 warning TR046: \"\u00E9\" stays small: of a label, only the letters of ASCII become capitals\n"
       "  instead: NP::NP : [D\u00C9T N] -> [N DET]\n"},
      {"VP::VP : [DET N] -> [N DET]",
       "1:2+2 warning TR040: the header has the type \"NP\", and the rule on line 2 has \"VP\"\n"},
  };
  return vMistakes;
}

const std::vector<Mistake>& HeaderMistakes() {
  static const std::vector<Mistake> vMistakes{
      {"{NP 8}",
       "1:1+6 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  instead: {NP,8}\n"},
      {"{NP;8}",
       "1:1+6 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  instead: {NP,8}\n"},
      {"{NP:8}",
       "1:1+6 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  instead: {NP,8}\n"},
      {"{NP.8}",
       "1:1+6 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  instead: {NP,8}\n"},
      {"{NP,8",
       "1:1+5 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  instead: {NP,8}\n"},
      {"{8,NP}",
       "1:1+6 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  instead: {NP,8}\n"},
      {"{NP8}",
       "1:1+5 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  instead: {NP,8}\n"},
      {"{NP}",
       "1:1+4 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  for example: {NP,8}\n"},
      {"{NP,+8}",
       "1:1+7 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  instead: {NP,8}\n"},
      {"{NP,8a}",
       "1:1+7 warning TR023: the header is not {type,number}: it gives the rule no number\n"
       "  for example: {NP,8}\n"},
      {"{NP\uFF0C8}",
       "1:4+3 warning TR023: the header is not {type,number}: it gives the rule no number; found U+FF0C FULLWIDTH COMMA, which looks like ,\n"
       "  instead: {NP,8}\n"},
      {"{NP,\uFF18}",
       "1:5+3 warning TR023: the header is not {type,number}: it gives the rule no number; found U+FF18 FULLWIDTH DIGIT EIGHT, which looks like 8\n"
       "  instead: {NP,8}\n"},
      {"(NP,8)",
       "1:1+6 warning TR035: this line is not part of a rule; a header is written {NP,8}\n"
       "  instead: {NP,8}\n"},
      {"[NP,8]",
       "1:1+6 warning TR035: this line is not part of a rule; a header is written {NP,8}\n"
       "  instead: {NP,8}\n"},
      {"<NP,8>",
       "1:1+6 warning TR035: this line is not part of a rule; a header is written {NP,8}\n"
       "  instead: {NP,8}\n"},
      {"NP,8",
       "1:1+4 warning TR035: this line is not part of a rule; a header is written {NP,8}\n"
       "  instead: {NP,8}\n"},
      {"{NP,8} see",
       "1:8+3 error TR035: this text is not part of a rule\n"
       "  instead: {NP,8} ;; see\n"},
      {"1. {NP,8}",
       "1:1+2 error TR035: this text is not part of a rule\n"
       "  instead: {NP,8}\n"},
      {"{VP,8}",
       "1:2+2 warning TR040: the header has the type \"VP\", and the rule on line 2 has \"NP\"\n"},
      {"\uFEFF{NP,8}",
       "1:1+3 error TR035: this text is not part of a rule; found U+FEFF ZERO WIDTH NO-BREAK SPACE, which cannot be seen\n"
       "  instead: {NP,8}\n"},
      {"\uFEFF;; SL: the car",
       "1:1+3 warning TR035: this line is not part of a rule; found U+FEFF ZERO WIDTH NO-BREAK SPACE, which cannot be seen\n"
       "  instead: ;; SL: the car\n"},
  };
  return vMistakes;
}

void ExpectFindings(const std::vector<Mistake>& vMistakes,
                    std::string (*MakeRule)(const std::string&)) {
  for (const Mistake& Row : vMistakes) {
    EXPECT_EQ(Described(FindingsIn(MakeRule(Row.Line))), Row.Findings) << Row.Line;
  }
}

TEST(HumanMistakes, AreFoundInAlignments) {
  ExpectFindings(AlignmentMistakes(), InBody);
}

TEST(HumanMistakes, AreFoundInConstraints) {
  ExpectFindings(ConstraintMistakes(), InBody);
}

TEST(HumanMistakes, AreFoundInCommentsAndOtherLines) {
  ExpectFindings(OtherMistakes(), InBody);
}

TEST(HumanMistakes, AreFoundInRuleLines) {
  ExpectFindings(SequenceMistakes(), AsRuleLine);
}

TEST(HumanMistakes, AreFoundInHeaders) {
  ExpectFindings(HeaderMistakes(), AsHeader);
}

// ---- What is not a mistake
// -----------------------------------------------------------------------

TEST(HumanMistakes, AreNotFoundInCorrectLines) {
  for (const std::string sLine : {"((x1 lex) = \u0434\u043E\u043C)",
                                  "((x1 lex) = l\u2019eau)",
                                  "((x1 lex) = \"new york\")",
                                  "((x1 lex) = \"l\u2019eau\")",
                                  "((x1 lex) = a\u00F1o)",
                                  "((x1 def) =-)",
                                  "((x1 def) = +)",
                                  "((x1 cas) = c)",
                                  "((x1 N\u00DAM) = sg)",
                                  "((x1 lex) = \u0646\u200C\u0645)",
                                  "((x1 num) = (x3 num))",
                                  "((x1 det) = x1)",
                                  "((x1 num) = (*OR* sg pl))",
                                  ";; SLs and TLs",
                                  ";;SL: a",
                                  ";; SL:",
                                  ";; tl;dr",
                                  ";; score 3 times",
                                  ";; Scores: 3",
                                  ";;SL_alt: a",
                                  ";;C-Structure:(NP)",
                                  "; a",
                                  ";--;(X1::Y2)"}) {
    EXPECT_EQ(Described(FindingsIn(InBody(sLine))), "") << sLine;
  }
  for (const std::string sLine :
       {"N'::N' : [DET N'] -> [N' DET]", "NP::NP [\"l'eau,\" N] -> [N \"[\"]",
        "\"a\"::\"a\" : [PRP$ N] -> [N/A *]",
        "\u0418\u0413::\u0418\u0413 : [\u0421 \u0412] -> [N V]"}) {
    EXPECT_EQ(Described(FindingsIn(AsRuleLine(sLine).substr(7))), "") << sLine;
  }
}

/// Headers as the library writes them, and those of rules that were flipped.
TEST(HumanMistakes, AllowHeadersWithTheTypeOfEitherSideOrTwoLettersOfIt) {
  for (const std::string sHeader : {"{ADJP,8}", "{NP,8}", "{AD,8}", "{np,8}", "{,8}"}) {
    const std::string Text = sHeader + "\nADJP::NP [N] -> [N]\n(X1::Y1)\n";
    const std::vector<Finding> vFindings = FindingsIn(Text);
    EXPECT_TRUE(std::none_of(vFindings.begin(), vFindings.end(), [](const Finding& Found) {
      return Found.Code == "TR040";
    })) << sHeader;
  }
}

// ---- Rules and files --------------------------------------------------------------------------

/// What check says of a file, without the lines and carets.
std::string Checked(const std::string& Text) {
  const TestFolder Folder;
  Grammar::RunOptions Run;
  Run.vsFiles = {Folder.Write("a.trr", Text)};
  Run.Output = Folder.Path("out");
  RunCheck(Run, Grammar::CheckOptions());
  std::istringstream Lines(Folder.Read("out"));
  const std::string Name = Folder.Path("a.trr");
  std::string Reported;
  for (std::string Line; std::getline(Lines, Line);) {
    if (Line.rfind(Name, 0) == 0) {
      Reported += Line.substr(Name.size() + 1) + '\n';
    }
  }
  return Reported;
}

const std::string Rule = "NP::NP : [DET N] -> [N DET]\n(\n(X1::Y2)\n(X2::Y1)\n";

TEST(HumanMistakes, IncludeAMissingHeader) {
  EXPECT_EQ(Checked("{NP,1}\n" + Rule + ")\n\nV" + Rule + "((x2 num) = sg)\n)\n"),
            "8:1: warning TR045: this rule has no header, while rules before it have one\n");
  EXPECT_EQ(Checked("{NP,1}\n" + Rule + ")\n(NP,2)\nV" + Rule + ")\n{NP,3}\nA" + Rule + ")\n"),
            "7:1: warning TR035: this line is not part of a rule; a header is written "
            "{NP,2}\n"
            "8:1: warning TR045: this rule has no header, while rules before it have one\n");
  EXPECT_EQ(Checked(Rule + ")\nV" + Rule + ")\n{ANP,1}\nA" + Rule + ")\n"), "");
  // Each file begins anew, also the same one.
  const TestFolder Folder;
  Folder.Write("a.trr", "V" + Rule + ")\n{NP,1}\n" + Rule + ")\n");
  EXPECT_EQ(RunTrrule({"check", "--only", "TR045", "a.trr", "a.trr"}, Folder.Path("")),
            (ChildEnd{0, "", ""}));
}

TEST(HumanMistakes, IncludeARuleMergedWithTheNextOne) {
  const std::string Merged =
      "error TR003: the rule already has a rule line, on line 2; if another rule begins here, "
      "it lacks its header\n";
  // What belongs to the other rule is not held against the first one.
  const std::string Next = "V::V : [A B C] -> [A B C]\n(\n(X1::Y2)\n(X3::Y3)\n((x3 num) = sg)\n)\n";
  EXPECT_EQ(Checked("{NP,1}\n" + Rule + Next), "6:1: " + Merged);
  EXPECT_EQ(Checked("{NP,1}\n" + Rule + ")\nV::V : [A B C] => [A B C]\n" + Next.substr(26)),
            "7:1: " + Merged);
  EXPECT_EQ(Checked("{NP,1}\nNP::NP [N] -> [N]\nNP::NP [N] -> [N]\n(X1::Y1)\n"),
            "3:1: error TR003: the rule already has a rule line, on line 2\n");
}

std::string Utf16(const std::string& Text) {
  std::string Wide;
  for (const char Byte : Text) {
    Wide.append(1, Byte).append(1, '\0');
  }
  return Wide;
}

TEST(HumanMistakes, HaveOneFindingForAFileThatIsNotAGrammar) {
  const std::string Prose =
      "Transfer rules are learned from examples.\nA rule has two sides (source and target), each = "
      "a sequence.\nSee also:\n- the manual\n- the paper\n";
  const std::string Code =
      "#include <string>\n\nstd::string Name(int Count) {\n  return std::to_string(Count = 1);\n}\n";
  std::string Many;
  for (int Times = 0; Times < 2000; ++Times) {
    Many += Prose;
  }
  const std::vector<std::pair<std::string, std::string>> Cases{
      {Prose, "this is not a grammar: of its first 5 lines, none could be one of a rule"},
      {Many, "this is not a grammar: of its first 2373 lines, none could be one of a rule"},
      {Code, "this is not a grammar: of its first 4 lines, none could be one of a rule"},
      {"\xFF\xFE" + Utf16(AsHeader("{NP,8}")),
       "this is not a grammar, or it is one in UTF-16: rules are read in UTF-8"},
      {Utf16(AsHeader("{NP,8}")),
       "this is not a grammar, or it is one in UTF-16: rules are read in UTF-8"},
      {std::string("\x7F"
                   "ELF\2\1\1\0\0\0{NP,8}\n",
                   17),
       "this is not a grammar: it holds bytes that no text holds"},
      {"{\"header\":{\"type\":\"NP\"},\"ruleIndex\":1}\n",
       "this is not a grammar but JSON: trrule from-json reads what trrule json has written"},
      {"{NP,1}\tNP::NP [N] -> [N]\t(\t(X1::Y1)\t)\n",
       "these are rules on one line each: trrule print --from-one-line reads them"}};
  for (const auto& [sText, sMessage] : Cases) {
    EXPECT_EQ(Checked(sText), "1:1: error TR016: " + sMessage + "\n") << sText.substr(0, 200);
  }
}

TEST(HumanMistakes, TreatAFileWithSomeRulesAsAGrammar) {
  // Three lines show too little; and one line in four is enough.
  EXPECT_EQ(Checked("a\n{NP,1}\n" + Rule + ")\nb\nc\nd\n"),
            "1:1: warning TR035: this line is not part of a rule\n"
            "1:1: warning TR037: this line comes before the header of its rule\n"
            "8:1: warning TR035: this line is not part of a rule\n"
            "9:1: warning TR035: this line is not part of a rule\n"
            "10:1: warning TR035: this line is not part of a rule\n");
  EXPECT_EQ(Checked("a\nb\nc\n"),
            "1:1: error TR001: the rule has no rule line\n"
            "1:1: error TR002: the rule has no alignment\n"
            "1:1: warning TR035: this line is not part of a rule\n"
            "2:1: warning TR035: this line is not part of a rule\n"
            "3:1: warning TR035: this line is not part of a rule\n");
  EXPECT_EQ(Checked(""), "");
  EXPECT_EQ(Checked(";; a\n;; b\n;; c\n;; d\n"), "");
}

// ---- Suggestions ------------------------------------------------------------------------------

std::string WithLine(const std::string& Text, std::size_t Number, const std::string& Line) {
  std::size_t Start = 0;
  for (std::size_t At = 1; At < Number; ++At) {
    Start = Text.find('\n', Start) + 1;
  }
  std::size_t End = std::min(Text.find('\n', Start), Text.size());
  End -= End > Start && Text[End - 1] == '\r' ? 1 : 0;
  return Text.substr(0, Start) + Line + Text.substr(End);
}

/// What is found on a line that was replaced by what was suggested for it, for each such line.
/// @param CountReturn is raised by the number of suggestions
std::string FoundInCorrectedLines(const std::string& Text, std::size_t& CountReturn) {
  std::string Found;
  for (const Finding& Current : FindingsIn(Text)) {
    if (Current.Suggestion.empty()) {
      continue;
    }
    ++CountReturn;
    std::vector<Finding> vAll = FindingsIn(WithLine(Text, Current.Line, Current.Suggestion));
    vAll.erase(std::remove_if(vAll.begin(), vAll.end(),
                              [&](const Finding& Other) { return Other.Line != Current.Line; }),
               vAll.end());
    Found += vAll.empty() ? "" : Described({Current}) + "but then:\n" + Described(vAll);
  }
  return Found;
}

std::string FileText(const std::filesystem::path& Path) {
  std::ifstream File(Path, std::ios::binary);
  return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

TEST(Suggestions, CorrectTheLinesOfAllCorpora) {
  std::size_t Count = 0;
  for (const std::string sFolder : {"examples/grammar", "fuzz/corpus/GrammarFuzz",
                                    "fuzz/corpus/RuleTextFuzz", "fuzz/corpus/ConstraintTextFuzz"}) {
    for (const auto& Entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(GrammarPaths::SourceFolder) / sFolder)) {
      if (Entry.is_regular_file()) {
        EXPECT_EQ(FoundInCorrectedLines(FileText(Entry.path()), Count), "") << Entry.path();
      }
    }
  }
  EXPECT_GT(Count, 10U);
}

TEST(Suggestions, CorrectHumanMistakes) {
  std::size_t Count = 0;
  for (const auto& [pMistakes, MakeRule] :
       {std::pair(&AlignmentMistakes(), &InBody), std::pair(&ConstraintMistakes(), &InBody),
        std::pair(&OtherMistakes(), &InBody), std::pair(&SequenceMistakes(), &AsRuleLine),
        std::pair(&HeaderMistakes(), &AsHeader)}) {
    for (const Mistake& Row : *pMistakes) {
      EXPECT_EQ(FoundInCorrectedLines(MakeRule(Row.Line), Count), "") << Row.Line;
    }
  }
  EXPECT_GT(Count, 100U);
}

TEST(Suggestions, CorrectGeneratedRules) {
  RuleGenerator Generator(3);
  std::string Text;
  for (int Times = 0; Times < 60; ++Times) {
    Text += Generator.NextRule();
  }
  std::size_t Count = 0;
  EXPECT_EQ(FoundInCorrectedLines(Text, Count), "");
  EXPECT_GT(Count, 10U);
}

/// A text with some bytes dropped, doubled or replaced by ones that mean something.
std::string Garbled(std::string Text, std::mt19937& Random) {
  static const std::vector<std::string> vsPieces = {
      "(",    ")",  "[",      "]",      "{",      "}",      ":",      "=",      " ",  ",",
      ";",    "\t", "\"",     "-",      ">",      "x",      "Y",      "1",      "l",  ".",
      "*OR*", "::", "] -> [", "\u0425", "\u00A0", "\u201C", "\u2192", "\u00E9", "\n", "#"};
  for (std::size_t Changes = 1 + Random() % 4; Changes > 0; --Changes) {
    const std::size_t At = Random() % Text.size();
    const std::string& sPiece = vsPieces[Random() % vsPieces.size()];
    Text.replace(At, Random() % 2, Random() % 3 == 0 ? "" : sPiece);
  }
  return Text;
}

TEST(Suggestions, CorrectDamagedLines) {
  std::mt19937 Random(11);
  const std::string Text = SampleText + "{NP,9}\n" + Rule + ")\n";
  std::size_t Count = 0;
  for (int Times = 0; Times < 500; ++Times) {
    const std::string Bad = Garbled(Text, Random);
    ASSERT_EQ(FoundInCorrectedLines(Bad, Count), "") << Bad;
  }
  EXPECT_GT(Count, 200U);
}

/// A rule is checked again for each suggestion, which a long rule does not get many of.
TEST(Suggestions, AreTriedALimitedNumberOfTimes) {
  std::string Lines;
  while (Lines.size() < 90000) {
    Lines += "((x1 num) = sg\n";
  }
  const std::vector<Finding> vFindings = FindingsIn(InBody(Lines));
  const auto Count = std::count_if(vFindings.begin(), vFindings.end(),
                                   [](const Finding& Found) { return !Found.Suggestion.empty(); });
  EXPECT_GT(Count, 0);
  EXPECT_LT(Count, 12);
}

}  // namespace
