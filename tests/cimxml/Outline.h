#pragma once

#include <pugixml.hpp>
#include <string>

namespace NZELVYR20 {

/// An element in short: its name, the names in its attributes, and in brackets what it holds.
std::string Outline(const pugi::xml_node& node);

/// What an operation returns, each element on a line of its own.
std::string Lines(const pugi::xml_node& response);

}  // namespace NZELVYR20
