#pragma once

#include "NormalForm.h"
#include "RuleRun.h"

namespace Grammar {

struct PrintOptions {
  FormOptions Form;
  bool Flip = false;
};

/// Writes each rule in the normal form, in the order of the input.
int RunPrint(const RunOptions& Run, const PrintOptions& Options);

}  // namespace Grammar
