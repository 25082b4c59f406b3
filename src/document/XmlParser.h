// Reads XML text into an XmlTree, strictly: what is not well-formed, a DOCTYPE and a prefix that
// no declaration binds are errors. Comments and processing instructions are not kept. Line ends of
// texts are kept as they stand, a carriage return included.
#pragma once

#include <string_view>

#include "document/XmlTree.h"

namespace zav {

enum class XmlEncoding {
  Utf8,      // whatever an XML declaration says
  Declared,  // UTF-8 unless an XML declaration says ISO-8859-1 or US-ASCII
};

// The document element, which is added to tree without a parent.
//
// Raises a component error whose description gives line and column (both from 1), what was
// expected and what was found; tree is then as it was. The name of the document stands in the
// description when there is one.
XmlTree::NodeId ParseXml(XmlTree& tree, std::string_view source, XmlEncoding encoding,
                         std::string_view documentName = {});

}  // namespace zav
