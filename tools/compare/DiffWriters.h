#pragma once

#include "DiffWriter.h"

#include <memory>

namespace Grammar {

/// The writer of a format.
std::unique_ptr<DiffWriter> MakeDiffWriter(const DiffStyle& StylePassIn);

}  // namespace Grammar
