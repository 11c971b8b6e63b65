#pragma once

#include "RuleRun.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace Grammar {

enum class DrawFormat : std::uint8_t { Text, Svg, Html };

/// Takes the pictures of rules, in the order of the input: one file with all of them, or, where the
/// output is a folder, a file for each.
class PictureOutput {
 public:
  virtual ~PictureOutput();

  /// Throws `RunError`, also where the file can hold no further picture.
  /// @param Name of the rule, "{NP,8}"; the file in a folder is called by it
  /// @param Written the picture, in its form
  virtual void Take(const std::string& Name, std::string_view Written) = 0;

  /// Puts what is written in its place. @return the status of the run
  virtual int Finish(const RunTally& Tally) = 0;
};

/// Whether an output is a folder: there is one of that name, or the name ends in "/".
bool IsFolder(const std::string& Name);

/// The output of a run. Throws `RunError`.
/// @param RunPassIn has to outlive what is returned
/// @param Advice what else to do where a file cannot hold all pictures
std::unique_ptr<PictureOutput> MakePictureOutput(const RunOptions& RunPassIn, DrawFormat Format,
                                                 const std::string& Advice);

}  // namespace Grammar
