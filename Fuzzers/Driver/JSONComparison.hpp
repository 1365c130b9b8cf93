#pragma once

#include "Private/Proxies/JSONDocument.hpp"
#include "Tests/Reference/JSONReference.hpp"

namespace Rellinor::Fuzzers {

/// Expects a value of a document to be what the reference reads, as far as the document keeps it.
///
/// @param keys  those with which the document was parsed
void expectEqual(const JSONValue& value, const Tests::JSONReferenceValue& reference, JSONKeys keys);

/// The same of a document that keeps everything.
void expectAllEqual(const JSONValue& value, const Tests::JSONReferenceValue& reference,
                    JSONKeys keys);

} // namespace Rellinor::Fuzzers
