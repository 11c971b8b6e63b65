#pragma once

#include "NormalForm.h"
#include "RuleRun.h"

namespace Grammar {

struct PrintOptions {
  FormOptions Form;
  bool Flip = false;
  bool AsLibrary = false;  ///< write what the library writes; see LibraryText.h
};

/// Writes each rule in the normal form, or as the library writes it, in the order of the input.
int RunPrint(const RunOptions& Run, const PrintOptions& Options);

}  // namespace Grammar
