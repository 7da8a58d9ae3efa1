// The collection that a host puts into ParamCol, in whatever shape the host's language has one:
//
// - an object with an enumerator, or with Count and Item (a VB Collection, a class of the host's own), its
//   numbers from 1 or from 0;
// - a dictionary, an object with Keys and Items: its items count, not its keys;
// - an object whose enumerator gives texts, taken as keys of Item;
// - a JScript array: `length`, and elements named "0", "1", …
//
// Nothing is kept of a collection between two walks, so a host may change it at any time. Which parameter is
// asked for, and what a failure means, is Quillon's business.
#pragma once

#include <string>

#include "common/win32/dispatch.h"

namespace tessel::component {

/// Visits each element in the collection's own order. The first failure ends the walk and is its result.
win32::CallResult WalkParameters(const win32::Dispatch& collection,
                                 const win32::ElementVisitor& visitor) noexcept;

/// The `Name` of an element, whatever object a host put into the collection; a type mismatch for what is no
/// object or has no text as its name.
win32::CallResult ParameterName(const win32::UniqueVariant& element) noexcept;

}  // namespace tessel::component
