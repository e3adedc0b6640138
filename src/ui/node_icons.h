// The pictures of the tree's node kinds and of the application, drawn in code: a star for
// a favorites list, a system with one carrier (conventional) or with shared channels
// (trunked), a tower for a site, a folder for a department (a blue one: talkgroups).
#pragma once

#include <QIcon>
#include <string_view>

#include "core/document.h"

namespace zel::ui {

enum class NodeKind { List, ConventionalSystem, TrunkSystem, Site, Department, TalkgroupDepartment, Other };

// The kind of a node of the visible tree, by its key and its record line.
NodeKind nodeKindOf(const Document& doc, std::string_view key);
QIcon nodeIcon(NodeKind kind);
// The application's own picture: a scanner with its display.
QIcon applicationIcon();

}  // namespace zel::ui
