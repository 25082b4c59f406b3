// Writes a tree of nodes as XML text.
#pragma once

#include <string>

#include "document/XmlTree.h"

namespace zav {

// The element with everything below it, attributes in their order, without XML declaration.
// Characters are escaped so that parsing gives back the same names, values and texts, carriage
// returns and the line ends of attributes included. Prefixes that are declared further up in the
// document are declared on the element too, so that the text can stand by itself.
std::string WriteXml(const XmlTree& tree, XmlTree::NodeId element);

}  // namespace zav
