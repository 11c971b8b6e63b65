#pragma once

// First, so that the settings are constructed before any other static object of a program.
#include "GlobalParams.h"

#include "Constraint.h"
#include "Halt.h"
#include "LineUp.h"
#include "StringUtils.h"
#include "Tokenizer.h"
#include "Utils.h"

// A static initialiser of a host may print a rule: the streams must be constructed by then.
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

/// One transfer rule: how a source-language (SL, x) constituent becomes a target-language (TL, y)
/// one.
///
/// It holds the types of both constituents, their component labels, the alignments between the
/// components, feature constraints over them, the example words that the rule was learned from,
/// and a list of alternative examples. Worked example:
/// @code
///   TrRule Rule;
///   Rule.SetTrRuleFromString("{NP,8}\n"
///                            "NP::NP : [DET ADJ N] -> [DET N ADJ]\n"
///                            "(\n"
///                            "(X1::Y1)\n"
///                            "(X2::Y3)\n"
///                            "(X3::Y2)\n"
///                            "(y1 == (y0 det))\n"
///                            "((x0 det) = x1)\n"
///                            ")\n");
///   Rule.Print();
///   // {NP,8}
///   // NP::NP [DET ADJ N] -> [DET N ADJ]
///   // (
///   // (X1::Y1)
///   // (X2::Y3)
///   // (X3::Y2)
///   // ((X0 DET) = X1)
///   // (Y1 = (Y0 DET)
///   // )
/// @endcode
///
/// Components count from 1 in every text and in every index argument; index 0 is the rule's own
/// node (x0, y0). Only the word-to-component maps count words and components from 0.
///
/// Arguments and results are copies. No operation throws an exception itself. Error messages go to
/// the stream that the operation names; traces go to standard output, only at the value of
/// `GlobalParams::DebuggingLevel` that the operation names. An operation that ends the process does
/// so with status 1 after its message; Halt.h describes how a host program keeps control. Unless
/// stated otherwise, an operation prints nothing, cannot end the process, and costs no more than
/// copying its arguments and result.
///
/// A copy of a rule has neither the comments nor the header type of the original, and an
/// assignment keeps those of the target; docs/behaviour.md describes how to keep many rules.
class __attribute__((visibility("default"))) TrRule {
 public:
  /// @name Lifecycle
  /// @{

  /// An empty rule: rule number and head indices -1, one training example, nothing else.
  TrRule();

  /// Copies a rule, except its comments and its header type, and puts the alignments of the copy in
  /// canonical order.
  ///
  /// Trace at level 4: "In TrRule's copy constructor." and the traces of the ordering. Prints the
  /// messages of `SetAlignment`, and ends the process like it.
  TrRule(const TrRule& OtherPassIn);

  /// Assigns all of the other rule except its comments and its header type; the rule keeps its own.
  ///
  /// The argument is made by the copy constructor, which orders its alignments. Trace at level 3:
  /// "In TrRule's overloaded assignment operator.", then "Leaving TrRule's overloaded assignment
  /// operator, rule is now:" and the printed rule, which ends the process like `Print`.
  void operator=(TrRule OtherTR);

  /// Releases the members.
  ~TrRule();

  /// @}
  /// @name Comparison
  /// @{

  /// Whether this rule's comparison text sorts before the other's, byte by byte.
  ///
  /// Trace at level 1: "In TrRule's overloaded less than operator." Each call copies the other rule
  /// and writes two comparison texts. If that is observable (at level 4, or with alignments that
  /// are not in order), it also copies both rules once more. To sort many rules, write each text
  /// once with `ReturnAsStringForComparison` and sort those. Ends the process like that function.
  bool operator<(TrRule other) const;

  /// Whether the rules count as equal: they have the same example words, label sequences, alignment
  /// string, types and constraint keys.
  ///
  /// Not symmetric: if all but the keys are the same, a rule with fewer training examples equals
  /// one with more, whatever their constraints, and one with more never equals one with fewer. This
  /// rule's alignment string is compared as stored, the other's in canonical order. Trace at level
  /// 1: "In overloaded operator==.", and, if the constraints are compared, "Now comparing
  /// constraints." and a line "Comparing:" for each pair of keys, up to the first difference.
  bool operator==(TrRule other) const;

  /// @}
  /// @name Words
  /// @{

  /// Sets the SL example words, upper-cased.
  void SetSLWords(std::vector<std::string> SLWordsPassIn);
  /// Sets the SL example words from a text, upper-cased and split at single blanks. Other white
  /// space alone between blanks becomes an empty word.
  void SetSLWords(std::string SLSent);
  /// The SL example words.
  std::vector<std::string> GetSLWords() const;
  /// The SL example words, joined by one blank.
  std::string GetSLString() const;

  /// Sets the TL example words, upper-cased, with a backslash before each double quote and each
  /// apostrophe. Only this form adds backslashes.
  void SetTLWords(std::vector<std::string> TLWordsPassIn);
  /// Sets the TL example words from a text, as `SetSLWords` does, without backslashes.
  void SetTLWords(std::string TLSent);
  /// The TL example words.
  std::vector<std::string> GetTLWords() const;
  /// The TL example words, joined by one blank.
  std::string GetTLString() const;

  /// @}
  /// @name Label sequences
  /// Each setter stores the labels upper-cased and then rebuilds the word-to-component map of its
  /// side, as `InitSLWord2Comp` and `InitTLWord2Comp` do. The text forms split at blanks, trim the
  /// pieces and drop empty ones; a tab without a blank beside it does not split. Trace at level 1:
  /// that of rebuilding the map, then "Now printing inited SLWord2Comp map (from SetSLPOS)." (with
  /// the side and the setter's own name) and the entries of the map again.
  /// @{

  void SetSLPOS(std::vector<std::string> SLPOSPassIn);  ///< Sets the SL component labels.
  void SetSLPOS(std::string SLPOSStrPassIn);            ///< The same from a text.
  std::vector<std::string> GetSLPOS() const;            ///< The SL component labels.

  /// Sets the SL word-level labels.
  void SetWordLevelSLPOS(std::vector<std::string> WordLevelSLPOSPassIn);
  void SetWordLevelSLPOS(std::string WordLevelSLPOSStrPassIn);  ///< The same from a text.
  std::vector<std::string> GetWordLevelSLPOS() const;           ///< The SL word-level labels.

  /// Sets the SL labels from a parse.
  void SetSLPOSFromParse(std::vector<std::string> SLPOSFromParsePassIn);
  void SetSLPOSFromParse(std::string SLPOSFromParseStrPassIn);  ///< The same from a text.
  std::vector<std::string> GetSLPOSFromParse() const;           ///< The SL labels from a parse.
  /// The TL labels from a parse; only flipping sets them.
  std::vector<std::string> GetTLPOSFromParseAfterFlipping() const;

  void SetTLPOS(std::vector<std::string> TLPOSPassIn);  ///< Sets the TL component labels.
  void SetTLPOS(std::string TLPOSStrPassIn);            ///< The same from a text.
  std::vector<std::string> GetTLPOS() const;            ///< The TL component labels.

  /// Sets the TL word-level labels.
  void SetWordLevelTLPOS(std::vector<std::string> WordLevelTLPOSPassIn);
  void SetWordLevelTLPOS(std::string WordLevelTLPOSStrPassIn);  ///< The same from a text.
  std::vector<std::string> GetWordLevelTLPOS() const;           ///< The TL word-level labels.

  /// @}
  /// @name Word-to-component maps
  /// From word position to component position, both counting from 0.
  /// @{

  /// Rebuilds the SL map. If there are as many SL words as SL component labels, each position that
  /// the map lacks is mapped to itself; otherwise the map is cleared. Trace at level 1: "Now
  /// printing inited SLWord2Comp map." and one line "key--value" for each entry.
  void InitSLWord2Comp();
  /// As `InitSLWord2Comp`, for the TL side; the trace names TLWord2Comp.
  void InitTLWord2Comp();

  /// Sets the SL map, and with it the first element of the alternatives' SL maps.
  void SetSLWord2Comp(std::map<int, int> SLWord2CompPassIn);
  std::map<int, int> GetSLWord2Comp() const;  ///< The SL word-to-component map.
  /// Sets the TL map, and with it the first element of the alternatives' TL maps.
  void SetTLWord2Comp(std::map<int, int> TLWord2CompPassIn);
  std::map<int, int> GetTLWord2Comp() const;  ///< The TL word-to-component map.

  /// @}
  /// @name Plain members
  /// Stored and returned unchanged; no argument is checked.
  /// @{

  /// Sets the constituent structure of the example. Trace at level 1: "Setting CStructure:|", the
  /// text and "|".
  void SetCStructure(std::string CStructurePassIn);
  std::string GetCStructure() const;  ///< The constituent structure of the example.

  void SetSLType(std::string SLTypePassIn);  ///< Sets the SL constituent type, such as "NP".
  std::string GetSLType() const;             ///< The SL constituent type.
  void SetTLType(std::string TLTypePassIn);  ///< Sets the TL constituent type.
  std::string GetTLType() const;             ///< The TL constituent type.

  void SetRuleIndex(int RuleIndexPassIn);  ///< Sets the rule's number.
  int GetRuleIndex() const;                ///< The rule's number, -1 when it has none.

  void SetCSet(std::set<int> CSetPassIn);  ///< Replaces the set of numbers kept with the rule.
  std::set<int> GetCSet() const;           ///< The set of numbers kept with the rule.
  void AddToCSet(int CSetElemPassIn);      ///< Adds a number to that set.
  void ClearCSet();                        ///< Empties that set.

  void SetNumTrExamples(int NumTrExamplesPassIn);  ///< Sets the number of training examples.
  int GetNumTrExamples() const;                    ///< The number of training examples.
  void IncrementNumTrExamples();                   ///< Adds one training example.

  void SetHeadIndex(int iHead);   ///< Sets the index of the rule's head.
  int GetHeadIndex() const;       ///< The index of the rule's head, -1 when it has none.
  void SetXHeadIndex(int iHead);  ///< Sets the index of the SL head.
  int GetXHeadIndex() const;      ///< The index of the SL head, -1 when it has none.
  void SetYHeadIndex(int iHead);  ///< Sets the index of the TL head.
  int GetYHeadIndex() const;      ///< The index of the TL head, -1 when it has none.

  /// @}
  /// @name Alignments
  /// @{

  /// Stores an alignment string, such as "((1,1),(2,3),(3,2))", and puts it in canonical order:
  /// ascending x, then y, as numbers, each pair once.
  ///
  /// A string of more than two characters without outer parentheses prints three lines on
  /// standard error and ends the process: "Alignment string was not in correct format:|", the
  /// string and "|"; "NewAl[0] is:" and its first character; "NewAl[NewAl.length()-1] is:" and its
  /// last. A pair without a readable x prints "ALIGNMENT string is not in correct format:|", the
  /// string and "|" there, one without a readable y "Alignment string is not in correct format:|",
  /// the string and "|"; the missing index is taken from the previous pair, and is 0 in the
  /// first. A trailing comma drops the last pair. Trace at level 4: "In ReorderAlignments,
  /// AlignmentString is:" and the string without a line end, then, unless it was empty, "At the
  /// end of ReorderAlignments, AlignmentString is:" and the new string.
  /// n log n in the pairs, linear when they are in order.
  void SetAlignment(std::string AlignmentStringPassIn);

  /// Adds one alignment from a line such as "(X2::Y3)". Small letters are accepted, and so is any
  /// text before the first "(" and after the last ")". The indices are not checked.
  ///
  /// A line without parentheses or without exactly two sides around "::" is rejected without a
  /// message. A bad x side prints "ERROR in TrRule::AddAlignment: x information missing or
  /// incorrect." on standard output, a bad y side "ERROR in TrRule::AddAlignment, y information
  /// missing or incorrect." there. Trace at level 1: "In TrRule::AddAlignment, string is:|", the
  /// line and "|", once as given and once without the text outside its parentheses, and "At the end
  /// of AddAlignment, AlignmentString is:" with the string before it is ordered. Orders the
  /// alignments with the messages and traces of `SetAlignment`, and ends the process like it. Each
  /// call builds a new canonical string.
  /// @return whether the pair was added; if not, the alignments are unchanged
  bool AddAlignment(std::string AlignmentPassIn);

  /// The stored alignment string; "" if there are no alignments.
  std::string GetAlignmentStr() const;

  /// One line for each alignment, in stored order: "(X2::Y3)", or ";--;(X2::Y3)" if the label of x
  /// or of y is a literal word in double quotes.
  ///
  /// An index without a label prints "TrRule::IsLexicalized called with invalid x index:", the
  /// index, ", where there are ", their number and " indices." on standard error, or the same with
  /// y, which is checked only if x is not a literal word. The list ends at a comma that is followed
  /// by
  /// "(" instead of a number, as in "()" with an added alignment.
  std::vector<std::string> GetAlignments() const;

  /// Stores the word-level alignment string unchanged; it is never ordered.
  void SetsWordLevelAl(std::string sWordLevelAlPassIn);
  std::string GetsWordLevelAl() const;  ///< The word-level alignment string.

  /// @}
  /// @name Reading
  /// @{

  /// Reads a rule from its text form (docs/format.md) and adds it to the contents of the rule, so
  /// read into a new rule unless you want to add.
  ///
  /// Stops at the first error, keeps what was read before, and prints one line on standard error:
  /// "Error in SetTrRuleFromStr: duplicate type and const seq information.", "… missing or
  /// incorrect type information.", "… missing or incorrect sl const seq information.", "… missing
  /// or incorrect tl const seq information.", "… Alignment couldn't be set:" with the line, or at
  /// the end "… Couldn't set rule -- something missing." Also prints what `AddAlignment` and
  /// `SetConstraint` print. An unreadable constraint does not make the reading fail. After the
  /// first line, 100,000 bytes are read. Trace at level 1: the parts of the type line, the types,
  /// and at the end "Successfully read in a transfer rule from a string:" with the printed rule.
  /// Ends the process like `SetAlignment`, and at level 1 like `Print`. n log n in the lines,
  /// except for alignments that are not in order: each rebuilds the alignment string.
  /// @return whether a whole rule was read
  bool SetTrRuleFromString(std::string TRStringPassIn);

  /// @}
  /// @name Writing
  /// All forms share the rule line and the block of alignments and constraints; none changes the
  /// rule. If the constraints cannot be ordered, the forms with constraints end the process with
  /// one of these lines on standard error: "ERROR in TrRule::GetConstraintsInPrintOrder. Can't
  /// find agreed index for constraint " with its text, "ERROR in
  /// TrRule::GetConstraintsInPrintOrder, couldn't resolve Category1 order." (or Category2,
  /// Category3and4). All print what `GetAlignments` prints. n log n in the constraints, linear in
  /// the text otherwise.
  /// @{

  /// Prints the rule on standard output, line by line, flushing each: comments, header with the
  /// type that was read, rule line, alignments, constraints.
  void Print();

  /// The rule without constraints: header, words, structure, score, rule line, alignments. No
  /// comments, and no line end after the last line. Cannot end the process.
  std::string ReturnAsStringForPrintNoConstraints() const;

  /// As `ReturnAsStringForPrintNoConstraints`, with the constraints in print order.
  std::string ReturnAsStringForPrint();

  /// The rule with every alternative, without header, words and structure.
  std::string ReturnAsStringWithAllAlts();

  /// The text that `operator<` compares: ";", the TL word-level labels, rule line, alignments and
  /// constraints in print order. Rules that differ elsewhere have the same text.
  std::string ReturnAsStringForComparison();

  /// @}
  /// @name Constraints
  /// A rule stores each constraint under its key: category, "__", constrained index, "__", feature,
  /// "__", value, for example "1__0__DET__X1". Lists are in the order of the keys. A value
  /// constraint merges with the value constraints whose keys are the same up to the value: their
  /// values become one disjunction, "(*OR* SG PL)". Each merging prints three lines on standard
  /// output at every level: "OldFeat:|" and "InsertFeat:|" with the two values and "|", and
  /// "NewKey is now:" with the new key.
  /// @{

  /// Adds a constraint from its six values, unchecked.
  void SetConstraint(int CategoryPassIn, int ConstrainedIndexPassIn, std::string FeaturePassIn,
                     std::string FeatValuePassIn, int RankInCategoryPassIn,
                     bool ValueConstraintPassIn);

  /// The same with the flag as a number of any integral type, 0 for an agreement. Without this
  /// form, a call with a literal 0 as index and a number as flag would also match the form that
  /// begins with the index, where the number is the category.
  template <typename FlagT, typename = std::enable_if_t<std::is_integral_v<FlagT>>>
  void SetConstraint(int CategoryPassIn, int ConstrainedIndexPassIn, std::string FeaturePassIn,
                     std::string FeatValuePassIn, int RankInCategoryPassIn,
                     FlagT ValueConstraintPassIn) {
    const bool IsValue = ValueConstraintPassIn != 0;
    SetConstraint(CategoryPassIn, ConstrainedIndexPassIn, std::move(FeaturePassIn),
                  std::move(FeatValuePassIn), RankInCategoryPassIn, IsValue);
  }

  /// Adds a constraint from its text, as `Constraint(std::string)` reads it, with its messages. An
  /// unreadable text is added as an empty constraint.
  void SetConstraint(std::string ConstraintPassIn);

  /// Adds a value constraint from a text such as "((X1 NUM) = (*OR* SG PL))", with its rank and
  /// category given. Letters are not upper-cased, and the index is read only after a capital X or
  /// Y.
  ///
  /// A wrong number of pieces prints "ERROR in TrRule::SetConstraint: Constraint does not have
  /// correct format:" and the text on standard error. A text whose right side refers to a node
  /// counts as an agreement, which this form never accepts: with one "(" it prints "Constraint was
  /// not in correct format:" and the text on standard output, a second time if it also lacks a
  /// blank followed by a ")"; with more it prints "Expected simple agreement consraint of the form
  /// (Xi = Xj), but got complex agreement constraint." there and ends the process. Nothing is added
  /// in these cases. Trace at level 1: "In SetConstraint, ConstraintPassIn is:" and the text.
  void SetConstraint(std::string ConstraintPassIn, int RankInCategoryPassIn, int CategoryPassIn);

  /// Adds a constraint on a feature of the node at an index: the value `FeatValuePassIn`, or, if
  /// that is "empty", an agreement with `FeatAgrPassIn`. Ends the process like
  /// `Constraint::SetCategory`.
  void SetConstraint(int ConstrainedIndexPassIn, std::string FeaturePassIn,
                     std::string FeatValuePassIn, std::string FeatAgrPassIn,
                     int RankInCategoryPassIn, int CategoryPassIn);

  /// Adds a constraint, as all forms of `SetConstraint` do. Logarithmic in the constraints, and
  /// linear in those that it merges with.
  /// @return false if its key exists; then nothing changes
  bool InsertConstraintIntoMap(Constraint ConstraintPassIn);

  /// Erases the first constraint, in key order, with the given index, feature and one of the
  /// categories, if its value is `FeatValuePassIn` or `FeatAgrPassIn`. It erases the key that is
  /// made from the category of that entry and the arguments: with `FeatValuePassIn`, or with
  /// `FeatAgrPassIn` if the former is "empty".
  ///
  /// If the first such constraint has another value, the call never returns: the process waits.
  /// Trace at level 1: "Now erasing constraint.", "Constraints map before erasing:" and a line
  /// "Constraint:" for each key, then "Constraints map after erasing:" and the same.
  /// Linear in the constraints.
  /// @return whether a constraint was found
  bool EraseConstraint(int ConstrainedIndexPassIn, std::string FeaturePassIn,
                       std::string FeatValuePassIn, std::string FeatAgrPassIn,
                       std::set<int> CategorySet);

  /// Erases every constraint of a category. @return true
  bool EraseCategoryConstraints(int CategoryPassIn);

  void ClearConstraints();        ///< Erases all constraints.
  int GetNumConstraints() const;  ///< The number of constraints.

  /// The texts of all constraints.
  std::vector<std::string> GetConstraints() const;
  /// The texts of the constraints of one category; 5 stands for 3 and 4 together.
  std::vector<std::string> GetConstraints(int CategoryPassIn) const;
  /// The texts of all constraints, sorted, each once.
  std::set<std::string> GetConstraintsAsSet() const;
  /// The same for one category; 5 stands for 3 and 4 together.
  std::set<std::string> GetConstraintsAsSet(int CategoryPassIn) const;
  /// All constraints, sorted by text, one for each text.
  std::set<Constraint> GetConstraintsAsSetC() const;
  /// The same for one category; 5 stands for 3 and 4 together.
  std::set<Constraint> GetConstraintsAsSetC(int CategoryPassIn) const;

  /// The constraints on one node in the given categories: the feature with (value, "empty") for a
  /// value constraint and ("empty", value) for an agreement. Of several constraints on one feature,
  /// only the first in key order is returned.
  std::map<std::string, std::pair<std::string, std::string>> GetConstraintsForInd(
      int ConstrainedIndexPassIn, std::set<int> CategorySet) const;

  /// @}
  /// @name Flipping
  /// @{

  /// Flips the rule: exchanges source and target side in words, labels, types, maps, alternatives
  /// and alignments. Constraints, comments, structures and head indices do not change. The SL
  /// labels from a parse become the TL labels and are cleared. The alignments are not ordered.
  ///
  /// An alignment pair without exactly two parts (also the text "()") prints "ERROR in
  /// TrRule::GetReversedAlignments: incorrect alignment string:|", the string and "|" on standard
  /// error and ends the process. Trace at level 1: "In FlipRule.", the printed rule, the maps
  /// before and after, and two lines for each alignment string. Linear.
  void FlipRuleNoConstraints();

  /// @}
  /// @name Alternatives
  /// Eight parallel lists with one element for each alternative. Nothing is checked, changed or
  /// compared.
  /// @{

  /// Appends one alternative.
  void AddAlterTrInfo(std::string AltSLSentPassIn, std::string AltTLSentPassIn,
                      std::string AltAlignmentPassIn, std::string AltCStructurePassIn,
                      std::map<int, int> AltSLWord2CompMapPassIn,
                      std::map<int, int> AltTLWord2CompMapPassIn,
                      std::vector<std::string> AltWordLevelSLPOSPassIn,
                      std::vector<std::string> AltWordLevelTLPOSPassIn);

  /// Appends the rule's own example as an alternative. @return true
  bool AddAlterTrInfo();

  /// Clears the lists and appends the rule's own example. @return true
  bool ResetAlterTrInfo();

  /// Copies the eight lists into the arguments.
  void GetAllAlts(std::vector<std::string>& vsAllSLSentsReturn,
                  std::vector<std::string>& vsAllTLSentsReturn,
                  std::vector<std::string>& vsAllAlignmentsReturn,
                  std::vector<std::string>& vsAllCStructuresReturn,
                  std::vector<std::map<int, int>>& vmiiAllSLWord2CompsReturn,
                  std::vector<std::map<int, int>>& vmiiAllTLWord2CompsReturn,
                  std::vector<std::vector<std::string>>& vvsAllWordLevelSLPOSsReturn,
                  std::vector<std::vector<std::string>>& vvsAllWordLevelTLPOSsReturn) const;

  /// @}

 private:
  void ReorderAlignments();
  std::string GetReversedAlignments(std::string AlignmentStringPassIn);
  bool IsLexicalized(int IndPassIn, int Type) const;
  bool IsOneToOne(int XPassIn, int YPassIn) const;
  std::vector<std::string> GetConstraintsInPrintOrder();

  // The loader fills the members without messages and traces.
  friend class TrRuleInternal::RuleLoader;

  bool ParseLine(std::string_view Line, TrRuleInternal::RuleLoader& LoaderReturn);
  bool ParseRuleLine(std::string_view Line);
  bool ParseSLPart(std::string_view Part);
  bool ParseTLPart(std::string_view Part);
  void AppendExample(std::string& TextReturn) const;
  void AppendRuleLine(std::string& TextReturn) const;
  void AppendAlignments(std::string& TextReturn) const;
  void AppendAlignmentLine(std::string& TextReturn, std::string_view X, std::string_view Y) const;
  void AppendBlock(std::string& TextReturn) const;
  std::size_t ExpectedExampleSize() const;
  std::size_t ExpectedBlockSize() const;
  std::string ComparisonText() const;
  bool HasCanonicalAlignments() const;
  std::vector<const Constraint*> ConstraintsInPrintOrder() const;
  bool TakeConstraint(Constraint& NewReturn);

  std::vector<std::string> Comments;
  std::vector<std::string> SLWords;
  std::vector<std::string> vsAllSLSents;
  std::vector<std::string> SLPOS;
  std::vector<std::string> WordLevelSLPOS;
  std::vector<std::string> SLPOSFromParse;
  std::vector<std::string> TLPOSFromParse;
  std::vector<std::vector<std::string>> vvsAllWordLevelSLPOSs;
  std::vector<std::string> TLWords;
  std::vector<std::string> vsAllTLSents;
  std::vector<std::string> TLPOS;
  std::vector<std::string> WordLevelTLPOS;
  std::vector<std::vector<std::string>> vvsAllWordLevelTLPOSs;
  std::string AlignmentString;
  std::string sWordLevelAl;
  std::vector<std::string> vsAllAlignments;
  std::string CStructure;
  std::vector<std::string> vsAllCStructures;
  std::string SLType;
  std::string TLType;
  std::map<std::string, Constraint> ConstraintsMap;
  int RuleIndex = -1;
  std::string POS;
  std::set<int> CSet;
  std::map<int, int> SLWord2Comp;
  std::vector<std::map<int, int>> vmiiAllSLWord2Comps;
  std::map<int, int> TLWord2Comp;
  std::vector<std::map<int, int>> vmiiAllTLWord2Comps;
  int NumTrExamples = 1;
  int HeadIndex = -1;
  int XHeadIndex = -1;
  int YHeadIndex = -1;
  Tokenizer Tokenize;
};
