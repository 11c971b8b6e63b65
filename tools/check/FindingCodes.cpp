// Sections: the codes, finding them, their examples, explaining them.

#include "FindingCodes.h"

#include "Bytes.h"
#include "NearestName.h"
#include "RunError.h"

#include <Splitter.h>

#include <algorithm>
#include <cstddef>

namespace Grammar {

std::string_view NameOf(Severity Which) {
  switch (Which) {
    case Severity::Note:
      return "note";
    case Severity::Warning:
      return "warning";
    default:
      return "error";
  }
}

// ---- The codes --------------------------------------------------------------------------------

namespace {

constexpr bool IsWhole = false;

}  // namespace

// A table. NOLINTNEXTLINE(readability-function-size)
const std::vector<CodeInfo>& AllCodes() {
  static const std::vector<CodeInfo> vCodes = {
      {"TR001", Severity::Error, "the rule has no rule line",
       "The rule line says what a rule makes of what: two types and two sequences of labels. It "
       "is recognised by its \"] -> [\", written exactly so. Without it there is no rule.",
       "{NP,1}\nNP::NP : [DET N] => [N DET]\n(\n(X1::Y2)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [N DET]\n(\n(X1::Y2)\n(X2::Y1)\n)", IsWhole},
      {"TR002", Severity::Error, "the rule has no alignment",
       "At least one component of the source has to become one of the target. The library takes a "
       "rule without an alignment for no rule.",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(y0 = x0)\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n(y0 = x0)\n)", IsWhole},
      {"TR003", Severity::Error, "the rule has a second rule line",
       "A rule has one rule line. A second one in it is a leftover, or the beginning of a rule "
       "whose header was lost or whose predecessor was not closed.",
       "{NP,1}\nNP::NP : [N] -> [N]\nNP::NP : [DET N] -> [DET N]\n(\n(X1::Y1)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)", IsWhole},
      {"TR004", Severity::Error, "the types are missing or cannot be read",
       "The rule line begins with the types of both sides, joined by \"::\" without blanks and "
       "followed by one.",
       "{NP,1}\nNP :: NP : [N] -> [N]\n(\n(X1::Y1)\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)", IsWhole},
      {"TR005", Severity::Error, "the source sequence is missing or cannot be read",
       "The labels of the source stand in square brackets in front of the arrow, at least one of "
       "them.",
       "{NP,1}\nNP::NP : DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)", IsWhole},
      {"TR006", Severity::Error, "the target sequence is missing or cannot be read",
       "The labels of the target stand in square brackets after the arrow, at least one of them, "
       "and neither another arrow nor a \"::\" follows.",
       "{NP,1}\nNP::NP : [DET N] -> [DET N\n(\n(X1::Y1)\n(X2::Y2)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)", IsWhole},
      {"TR007", Severity::Error, "the alignment cannot be read",
       "An alignment joins one component of the source with one of the target, by their numbers, "
       "in parentheses. Several pairs take several lines.",
       "{NP,1}\nNP::NP : [DET N] -> [N DET]\n(\n(X1::Y2) (X2::Y1)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [N DET]\n(\n(X1::Y2)\n(X2::Y1)\n)", IsWhole},
      {"TR008", Severity::Error, "the constraint is not in the format",
       "A constraint is ((x1 num) = sg), ((x1 num) = (y2 num)) or (x0 = x1). The library's reader "
       "takes almost any text for one, and keeps something else than was meant.",
       "((x1 num = sg)", "((x1 num) = sg)"},
      {"TR009", Severity::Error, "a constraint names a component that the rule does not have",
       "Components are counted from 1 on each side; 0 is the constituent itself. A constraint on a "
       "component that is not there can never hold. The rule can be written all the same.",
       "((x4 num) = sg)", "((x3 num) = sg)"},
      {"TR010", Severity::Error, "an alignment names a component that the rule does not have",
       "Components are counted from 1 on each side. An alignment with one that is not there aligns "
       "nothing. The rule can be written all the same.",
       "{NP,1}\nNP::NP : [DET N] -> [N DET]\n(\n(X1::Y3)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [N DET]\n(\n(X1::Y2)\n(X2::Y1)\n)", IsWhole},
      {"TR011", Severity::Error, "the constraints refer to each other in a cycle",
       "Agreements are applied in an order in which each finds its value set already. Constraints "
       "that wait for each other have no such order, and the library does not write the rule.",
       "((x1 num) = (x2 num))\n((x2 num) = (x1 num))", "((x1 num) = (x2 num))\n((x2 num) = sg)"},
      {"TR012", Severity::Error, "an agreement without a node",
       "A whole node can equal another node only, and the library looks for that node's number "
       "after the last X or Y of the right side. A value belongs to a feature.",
       "(x0 = n)", "((x0 cat) = n)"},
      {"TR013", Severity::Error, "the rule is longer than the reader's limit",
       "The library looks at 100,000 bytes after the first line of a rule, and at as many of a "
       "line. What follows would be cut off silently. In the example, \"...\" stands for that many "
       "more lines like the one before.",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n((x1 num) = sg)\n...\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n((x1 num) = sg)\n)", IsWhole},
      {"TR014", Severity::Error, "the rule cannot be written as it was read",
       "Each line can be read, but what would be written of the rule reads as another rule. In the "
       "example, the double quote before the sequence keeps \";;\" from beginning a comment; it is "
       "not part of the rule, and without it, the comment begins. print --as-library also reports "
       "rules by this code that the library's reader stops at, or cannot put in order.",
       "{VP,2}\nVP::VP \"a [b;;\" c] -> [V NP]\n(\n(X1::Y1)\n)",
       "{VP,2}\nVP::VP : [b c] -> [V NP]\n(\n(X1::Y1)\n(X2::Y2)\n)", IsWhole},
      {"TR015", Severity::Warning, "a target component has no source, or several",
       "A target place gets its constituent from the source place that it is aligned with or, of "
       "several, from the only one with its own label; a source place is wanted with one label. "
       "Where that is not so, trrule translate leaves the rule out, and calls it an error. What the "
       "source does not have, the target gets from literal words.",
       "{NP,1}\nNP::NP : [N] -> [DET N]\n(\n(X1::Y2)\n)",
       "{NP,1}\nNP::NP : [N] -> [\"el\" N]\n(\n(X1::Y2)\n)", IsWhole},
      {"TR016", Severity::Error, "the file is not a grammar",
       "The file holds another kind of text, or none: it is in UTF-16, has bytes that no text has, "
       "or hardly a line that could be one of a rule. It gets this one finding.",
       "Dear all,\nplease find\nthe grammar\nattached.",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)", IsWhole},
      {"TR017", Severity::Error, "two versions of the rule are not merged",
       "Two versions of a rule say different things, or one of them has removed it, and trrule merge "
       "has left comments that show both. The rule says what ours said. Correct it, and remove these "
       "comments.",
       ";;Conflict: see both versions, correct the rule, and remove these lines\n"
       ";; ours: target type: NP becomes AP\n;; theirs: target type: NP becomes PP\n"
       "{NP,1}\nNP::AP : [N] -> [N]\n(\n(X1::Y1)\n)",
       "{NP,1}\nNP::PP : [N] -> [N]\n(\n(X1::Y1)\n)", IsWhole},
      {"TR021", Severity::Note, "the reader shortens the type of the header",
       "The library's record keeps two letters of the header's type, so that a program that writes "
       "the rule from the record writes another header. The command keeps the whole type.",
       "{ADJP,1}\nADJP::ADJP : [ADJ] -> [ADJ]\n(\n(X1::Y1)\n)",
       "{AP,1}\nAP::AP : [ADJ] -> [ADJ]\n(\n(X1::Y1)\n)", IsWhole},
      {"TR022", Severity::Note, "the reader shortens the number of the header",
       "The library's record keeps the last digit of the header's number, so that a program that "
       "writes the rule from the record writes another header. The command keeps the whole number.",
       "{NP,12}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)",
       "{NP,2}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)", IsWhole},
      {"TR023", Severity::Warning, "the header cannot be read",
       "A header is a type and a number in braces, with a comma between them. Another one is kept "
       "unchanged, but gives the rule no number.",
       "{NP 8}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)", "{NP,8}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)",
       IsWhole},
      {"TR024", Severity::Note, "a doubled equals sign",
       "The command takes \"==\" for \"=\". So does the library's reader between whole nodes; after "
       "a feature, it takes a reference for a value.",
       "((y1 num) == (x1 num))", "((y1 num) = (x1 num))"},
      {"TR025", Severity::Note, "a feature of several words becomes one word",
       "The library's record joins the words of a feature, so that \"agr gen\" and \"agrgen\" are "
       "the same. The command keeps the words.",
       "((y1 agr gen) = fem)", "((y1 agrgen) = fem)"},
      {"TR026", Severity::Note, "the feature on the right differs from the one on the left",
       "The library's record keeps the feature on the left, and writes it on the right, too. The "
       "command keeps both.",
       "((y1 num) = (x1 per))", "((y1 num) = (x1 num))"},
      {"TR027", Severity::Note, "a negation loses its parenthesis",
       "The library's record keeps a negation without its closing parenthesis, and so does what is "
       "written of it. The command writes it with the parenthesis.",
       "((x1 def) = (*NOT* +))", "((x1 def) = -)"},
      {"TR028", Severity::Note, "a literal value with an X changes the category",
       "The library takes any X in a value of the target side for a reference to the source side, "
       "which gives the constraint another category and another place among the others. Nothing of "
       "it is lost.",
       "((y1 tense) = next)", "((y1 tense) = future)"},
      {"TR029", Severity::Note, "the reader reads a comment as a line of the rule",
       "For the library's reader, a line counts by its marks, also where they stand in a comment: "
       "\"=\", \"::\", \"{\" and \"] -> [\". For the command, a comment is a comment.",
       ";; (x0 = x2) would do, too", ";; x0 and x2 would agree, too"},
      {"TR030", Severity::Warning, "a constraint names a component without an alignment",
       "A component that is aligned with nothing has no counterpart to agree with, so the "
       "alignment was probably forgotten, or the number is wrong. Literal words need no alignment.",
       "{NP,1}\nNP::NP : [DET N] -> [N]\n(\n(X2::Y1)\n((x1 num) = sg)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [N]\n(\n(X2::Y1)\n((x2 num) = sg)\n)", IsWhole},
      {"TR031", Severity::Warning, "a constraint is given twice",
       "The second one adds nothing. It is a note where only the library takes two constraints "
       "for the same, since its key does not hold what they differ in.",
       "((x1 num) = sg)\n((X1 NUM) = SG)", "((x1 num) = sg)\n((x1 per) = third)"},
      {"TR032", Severity::Warning, "two values of a feature become one disjunction",
       "Two values for the same feature are read as alternatives, and become one *OR*. Where both "
       "were meant to hold, the rule means something else now.",
       "((x1 num) = sg)\n((x1 num) = pl)", "((x1 num) = (*OR* sg pl))"},
      {"TR033", Severity::Warning, "two rules are duplicates",
       "A rule that duplicates an earlier one is applied twice for the same result. \"trrule "
       "unique\" writes each rule once.",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\n{NP,2}\nNP::NP [n] -> [n]\n(\n(x1::y1)\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\n{NP,2}\nNP::NP [DET N] -> [N]\n(\n(X2::Y1)\n)",
       IsWhole},
      {"TR034", Severity::Warning, "two rules have the same type and number",
       "Type and number name a rule. Two rules of one name cannot be distinguished in reports and "
       "indexes.",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\n{NP,1}\nNP::NP : [DET N] -> [N]\n(\n(X2::Y1)"
       "\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\n{NP,2}\nNP::NP : [DET N] -> [N]\n(\n(X2::Y1)"
       "\n)",
       IsWhole},
      {"TR035", Severity::Error, "text that is not part of a rule",
       "Text that is neither comment nor a part of a line means nothing, and the library's reader "
       "passes over it without a word. Where it was meant as a line of the rule, that is missing. "
       "Outside of a rule it is a warning. It is kept as a comment.",
       "see above", ";; see above"},
      {"TR036", Severity::Warning, "an alignment is given twice",
       "The second one adds nothing; probably another pair was meant.",
       "{NP,1}\nNP::NP : [DET N] -> [N DET]\n(\n(X1::Y2)\n(X1::Y2)\n(X2::Y1)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [N DET]\n(\n(X1::Y2)\n(X2::Y1)\n)", IsWhole},
      {"TR037", Severity::Warning, "the line comes before the header of its rule",
       "A line before the first header of a file counts as part of that first rule. It may have "
       "been meant for another one.",
       "(x0 = x1)\n{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n(x0 = x1)\n)", IsWhole},
      {"TR038", Severity::Warning, "a blank becomes part of a value",
       "The blank between a node and the closing parenthesis becomes part of the value, which is "
       "then another one than without it.",
       "(x0 = x2 )", "(x0 = x2)"},
      {"TR039", Severity::Warning, "a sign becomes part of a name",
       "Types, labels and the words of lists end only at blanks. A comma, colon, bracket or lone "
       "double quote becomes part of the name, which then matches nothing.",
       "{NP,1}\nNP::NP : [DET, N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)",
       "{NP,1}\nNP::NP : [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)", IsWhole},
      {"TR040", Severity::Warning, "the header has another type than the rule",
       "The header names a rule by the type of its source side. Another type was probably copied "
       "from another rule. The type of the target side counts, too, and the first two letters of "
       "either.",
       "{VP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)", "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)",
       IsWhole},
      {"TR041", Severity::Warning, "a part of the sign becomes part of the value",
       "There is one sign, \"=\". What else is written with it, as in \"=c\" and \"=:\", becomes "
       "part of the value.",
       "((x1 num) =c sg)", "((x1 num) = sg)"},
      {"TR042", Severity::Warning, "a list without parentheses",
       "Without parentheses of its own, *OR* and the words after it are one value of several words, "
       "and no list.",
       "((x1 per) = *OR* first second)", "((x1 per) = (*OR* first second))"},
      {"TR043", Severity::Warning, "several words become one value",
       "A value of several words is one value; alternatives are written as a list with *OR*.",
       "((x1 num) = sg pl)", "((x1 num) = (*OR* sg pl))"},
      {"TR044", Severity::Warning, "both sides of a constraint are the same",
       "Such a constraint always holds. Probably one of the numbers is wrong.",
       "((x2 num) = (x2 num))", "((x2 num) = (x3 num))"},
      {"TR045", Severity::Warning, "a rule without a header follows rules with one",
       "In a file whose rules have headers, a rule without one has probably lost it.",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\nNP::NP : [DET N] -> [N]\n(\n(X2::Y1)\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\n{NP,2}\nNP::NP : [DET N] -> [N]\n(\n(X2::Y1)"
       "\n)",
       IsWhole},
      {"TR046", Severity::Warning, "a small letter beyond ASCII stays small",
       "Features and labels are compared in capitals, but only the letters of ASCII become "
       "capitals. So the same name is two names when it is written with other capitals elsewhere.",
       "((x2 número) = sg)", "((x2 NÚMERO) = sg)"},
      {"TR047", Severity::Warning, "the label of a comment is not recognised",
       "The comments ;;SL:, ;;TL:, ;;C-Structure: and ;;Score: carry words, structure and count of "
       "a rule. Written in another way, they are only comments.",
       ";; SL the red car", ";; SL: the red car"},
      {"TR048", Severity::Warning, "a character looks like one of ASCII",
       "The character is another one than it seems to be, so that the name or sign with it is "
       "another one, too. Words that are all of another script are not meant.",
       "((x2 gen) = mаsc)", "((x2 gen) = masc)"},
      {"TR049", Severity::Warning, "the count is not read as it is written",
       "The count of a rule is the number right after its first ;;Score:, at least 1 and at most "
       "2,147,483,647. Anything else is read as far as it goes.",
       ";;Score: many", ";;Score: 12"},
      {"TR050", Severity::Warning, "no rule provides the label of a component",
       "A place takes a constituent whose rule has the place's label as its source type and, where "
       "the place is translated, the label of the target place as its target type. Where no rule of "
       "all files has, nothing ever fills the place. It is a note where the files seem to be without "
       "their lexicon: where no label is provided by words alone.",
       "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(\n(X1::Y1)\n)\n\n"
       "{NP,1}\nNP::NP : [N ADJ] -> [N ADJ]\n(\n(X1::Y1)\n(X2::Y2)\n)",
       "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(\n(X1::Y1)\n)\n\n"
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)",
       IsWhole},
      {"TR051", Severity::Warning, "no start type leads to a rule",
       "With --start, only constituents of the start types are translations of a text. The rule is "
       "part of none: no rule of a start type takes its constituents, nor one of those that make "
       "up such a rule. The example is for --start NP.",
       "{NP,1}\nNP::NP : [\"it\"] -> [\"lo\"]\n(\n(X1::Y1)\n)\n\n"
       "{VP,1}\nVP::VP : [NP] -> [NP]\n(\n(X1::Y1)\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\n"
       "{N,1}\nN::N : [\"it\"] -> [\"lo\"]\n(\n(X1::Y1)\n)",
       IsWhole},
      {"TR052", Severity::Warning, "no rule supplies the value that an equation wants",
       "Every rule that could fill the place gives the feature a value, itself or by way of its own "
       "places, and none of these values is one that the constraint takes. So the rule applies to no "
       "text. It is a note where the files seem to be without their lexicon, as for TR050.",
       "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(\n(X1::Y1)\n((x0 num) = sg)\n)\n\n"
       "{NP,1}\nNP::NP : [\"two\" N] -> [\"dos\" N]\n(\n(X2::Y2)\n((x2 num) = pl)\n)",
       "{N,1}\nN::N : [\"cars\"] -> [\"autos\"]\n(\n(X1::Y1)\n((x0 num) = pl)\n)\n\n"
       "{NP,1}\nNP::NP : [\"two\" N] -> [\"dos\" N]\n(\n(X2::Y2)\n((x2 num) = pl)\n)",
       IsWhole},
      {"TR053", Severity::Note, "unary rules lead in a cycle",
       "A constituent becomes one of its own types again, by rules with one place each. No rule is "
       "used twice in such a chain, so that it ends; but each text gets derivations that differ in "
       "nothing else.",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\n"
       "{N,1}\nN::N : [NP] -> [NP]\n(\n(X1::Y1)\n)",
       "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n\n"
       "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(\n(X1::Y1)\n)",
       IsWhole},
      {"TR054", Severity::Note, "two rules differ only in their target side",
       "They have the same source type, the same source sequence and the same constraints on it. "
       "Where no constraint of the target decides between them, a text has both translations. "
       "Learned grammars are full of such rules, and so are lexicons with several forms of a word; "
       "elsewhere, a constraint may be missing.",
       "{N,1}\nN::N : [\"bank\"] -> [\"banco\"]\n(\n(X1::Y1)\n)\n\n"
       "{N,2}\nN::N : [\"bank\"] -> [\"orilla\"]\n(\n(X1::Y1)\n)",
       "{N,1}\nN::N : [\"bank\"] -> [\"banco\"]\n(\n(X1::Y1)\n)\n\n"
       "{N,2}\nN::N : [\"shore\"] -> [\"orilla\"]\n(\n(X1::Y1)\n)",
       IsWhole},
  };
  return vCodes;
}

// ---- Finding them -----------------------------------------------------------------------------

namespace {

/// The number of a code: 7 for `TR007`.
std::size_t NumberOf(std::string_view Code) {
  std::string_view Digits = Code.substr(2);
  return static_cast<std::size_t>(TrRuleInternal::TakeNumber(Digits));
}

/// The codes by their numbers, null if there is none.
std::vector<const CodeInfo*> CodesByNumber() {
  constexpr std::size_t Numbers = 100;
  std::vector<const CodeInfo*> vByNumber(Numbers);
  for (const CodeInfo& Info : AllCodes()) {
    vByNumber[NumberOf(Info.Code)] = &Info;
  }
  return vByNumber;
}

}  // namespace

const CodeInfo* FindCode(std::string_view Code) {
  static const std::vector<const CodeInfo*> vByNumber = CodesByNumber();
  constexpr std::size_t Size = 5;
  if (Code.size() != Size || !StartsWith(Code, "TR0") || !IsDigit(Code[3]) || !IsDigit(Code[4])) {
    return nullptr;
  }
  return vByNumber[NumberOf(Code)];
}

bool KeepsFromUse(std::string_view Code) {
  return Code <= "TR010" || Code == "TR013" || Code == "TR015";
}

const CodeInfo& KnownCode(const std::string& Written, const std::string& WhereToLook) {
  const std::string Code = Upper(Trimmed(Written));
  if (const CodeInfo* Info = FindCode(Code)) {
    return *Info;
  }
  std::vector<std::string> vsAll;
  for (const CodeInfo& Info : AllCodes()) {
    vsAll.emplace_back(Info.Code);
  }
  throw RunError("unknown code \"" + Written + '"' +
                 AdviceOn(Code, vsAll, WhereToLook + " lists the codes"));
}

// ---- Their examples ---------------------------------------------------------------------------

const std::string_view ExampleRuleLine = "NP::NP : [DET ADJ N] -> [DET N ADJ]";

namespace {

/// Replaces a line "..." by copies of the line before it.
void Repeat(std::string& TextReturn) {
  constexpr std::string_view Dots = "\n...\n";
  const std::size_t Place = TextReturn.find(Dots);
  if (Place == std::string::npos) {
    return;
  }
  const std::size_t Begin = TextReturn.rfind('\n', Place - 1);
  const std::string Line = TextReturn.substr(Begin, Place - Begin);
  std::string Copies;
  while (Copies.size() <= TrRuleInternal::Splitter::MaxRest) {
    Copies += Line;
  }
  TextReturn.replace(Place, Dots.size() - 1, Copies);
}

}  // namespace

std::string WholeExample(const CodeInfo& Info, std::string_view Example) {
  std::string Text(Example);
  if (Info.IsBody) {
    Text = "{NP,1}\n" + std::string(ExampleRuleLine) + "\n(\n(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n" +
           Text + "\n)";
  }
  Repeat(Text);
  return Text + '\n';
}

// ---- Explaining them --------------------------------------------------------------------------

namespace {

/// Appends a paragraph in lines of a width, each after two blanks.
void AppendWrapped(std::string_view Paragraph, std::string& TextReturn) {
  constexpr std::size_t Width = 76;
  while (!Paragraph.empty()) {
    std::size_t End = Paragraph.size();
    if (End > Width) {
      End = Paragraph.rfind(' ', Width);
    }
    TextReturn.append("  ").append(Paragraph.substr(0, End)).append(1, '\n');
    Paragraph.remove_prefix(std::min(End + 1, Paragraph.size()));
  }
}

void AppendExample(std::string_view Heading, std::string_view Example, std::string& TextReturn) {
  TextReturn.append(1, '\n').append(Heading).append(":\n");
  while (!Example.empty()) {
    const std::size_t End = std::min(Example.find('\n'), Example.size());
    TextReturn.append(End == 0 ? "" : "  ").append(Example.substr(0, End)).append(1, '\n');
    Example.remove_prefix(std::min(End + 1, Example.size()));
  }
}

}  // namespace

std::string Explanation(const CodeInfo& Info) {
  std::string Text(Info.Code);
  Text.append(", ").append(NameOf(Info.Level)).append(": ").append(Info.Title).append("\n\n");
  AppendWrapped(Info.Explanation, Text);
  const std::string Where =
      Info.IsBody ? ", in the rule " + std::string(ExampleRuleLine) : std::string();
  AppendExample("Wrong" + Where, Info.Wrong, Text);
  AppendExample("Right" + Where, Info.Right, Text);
  return Text;
}

}  // namespace Grammar
