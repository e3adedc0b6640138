// What the `zel hpd ...` commands share: the noun itself, and reading and writing a favorites
// file in a document of the command's own, rows in memory, so that no command touches the
// page files of a running desktop session.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "core/document.h"
#include "formats/hpd_reader.h"
#include "formats/hpd_writer.h"
#include "formats/row_store.h"

namespace zel::cli {

// The `hpd` noun; the first command file to ask makes it.
CLI::App* hpdNoun(CLI::App& app);
// Reads the file as list 1 or ends the command with the reader's message.
formats::HpdReadResult readHpdOrFail(Document& doc, formats::MemoryRows& rows,
                                     const std::string& path);
// Saves the document as list 1 or ends the command with the writer's message.
formats::HpdWriteResult writeHpdOrFail(Document& doc, formats::MemoryRows& rows,
                                       const std::string& path);

}  // namespace zel::cli
