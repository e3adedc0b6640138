// The suite's one way to replace a file lives in core (core/atomic_file.h), below every
// library that writes files; the file formats use it under their own namespace.
#pragma once

#include "core/atomic_file.h"

namespace zel::formats {

using zel::backupPathFor;
using zel::KeepBackup;
using zel::kTemporarySuffix;
using zel::writeFileAtomically;
using zel::WriteStatus;

}  // namespace zel::formats
