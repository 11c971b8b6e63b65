#pragma once

#include <set>
#include <string>

/// The settings of the whole process.
///
/// The library reads only `DebuggingLevel`. It selects traces on standard output by equality, never
/// as a range. At 1: the reader, label and map setters, alignment editing, flipping, comparison and
/// the constraint store; at 3: assignment; at 4: copy construction and the ordering of alignments.
/// Any other value traces nothing. Error messages are printed at every value. The other members are
/// for programs built on the library. Worked example:
/// @code
///   TrRule Rule;
///   GlobalParams::DebuggingLevel = 1;
///   Rule.SetCStructure("(NP)");
///   // Setting CStructure:|(NP)|
/// @endcode
///
/// The members are plain, unsynchronised variables: set them before other threads use the library.
/// A source that includes `TrRule.h` may set them and use rules in its own static initialisers,
/// too, however the library is linked: the members are defined in this header, so they are
/// constructed before anything that the source defines below the include, and destroyed after it.
class __attribute__((visibility("default"))) GlobalParams {
 public:
  inline static std::string L2;                         ///< empty
  inline static int DebuggingLevel = 0;                 ///< 0; selects the traces
  inline static bool SeedGenOnly = false;               ///< false
  inline static bool ComposOnly = false;                ///< false
  inline static bool MoveToPOS = false;                 ///< false
  inline static bool BasicConstraints = false;          ///< false
  inline static std::string OrigGrammarFile;            ///< empty
  inline static std::string HeadTableFile;              ///< empty
  inline static bool Compounds = false;                 ///< false
  inline static bool ProDrop = false;                   ///< false
  inline static bool FindL2Root = false;                ///< false
  inline static bool AdvConstraints = false;            ///< false
  inline static bool ComplexCases = false;              ///< false
  inline static bool MaxCompos = false;                 ///< false
  inline static bool LeaveLexForDiffPOS = false;        ///< false
  inline static bool LenientPOS = false;                ///< false
  inline static bool FilterRules = false;               ///< false
  inline static std::set<std::string> ssRelevantTypes;  ///< empty
  inline static bool NounPerson3 = false;               ///< false
  inline static bool StrictValConstr = false;           ///< false
};
