#pragma once

#include <set>
#include <string>

/// The settings of the whole process.
///
/// Only `DebuggingLevel` is read by the library: each value selects traces on standard output by
/// equality, never as a range. At 1: the reader, label and map setters, alignment editing,
/// flipping, comparison and the constraint store; at 3: assignment; at 4: copy construction and
/// the ordering of alignments. Every other value traces nothing, and error messages are printed
/// at all of them. The other members are kept for programs built on the library. Worked example:
/// @code
///   GlobalParams::DebuggingLevel = 4;
///   TrRule Copy(Rule);    // prints "In TrRule's copy constructor." and the ordering's traces
/// @endcode
///
/// The members are plain, unsynchronised variables: set them before other threads use the library.
class __attribute__((visibility("default"))) GlobalParams {
 public:
  static std::string L2;                         ///< empty
  static int DebuggingLevel;                     ///< 0; selects the traces
  static bool SeedGenOnly;                       ///< false
  static bool ComposOnly;                        ///< false
  static bool MoveToPOS;                         ///< false
  static bool BasicConstraints;                  ///< false
  static std::string OrigGrammarFile;            ///< empty
  static std::string HeadTableFile;              ///< empty
  static bool Compounds;                         ///< false
  static bool ProDrop;                           ///< false
  static bool FindL2Root;                        ///< false
  static bool AdvConstraints;                    ///< false
  static bool ComplexCases;                      ///< false
  static bool MaxCompos;                         ///< false
  static bool LeaveLexForDiffPOS;                ///< false
  static bool LenientPOS;                        ///< false
  static bool FilterRules;                       ///< false
  static std::set<std::string> ssRelevantTypes;  ///< empty
  static bool NounPerson3;                       ///< false
  static bool StrictValConstr;                   ///< false
};
