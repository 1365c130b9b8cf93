/// @file
/// The whole public surface of Rellinor. Needs nothing but the standard library.
///
/// @mainpage
/// A host makes a `RecordsImporter`, calls `records` with the `URL` of an export and its
/// `ImportSource`, and receives `ImportedRecords` or an `NSError`. `TirelExportData` is for hosts
/// that write an export themselves.
///
/// What makes a text or a list throws `std::bad_alloc` for lack of memory; only `records` hands it
/// over as an error. Different objects may be used from different threads at once, and so may one
/// that nobody changes.
#pragma once

#include <Rellinor/Detection.hpp>
#include <Rellinor/ExportFile.hpp>
#include <Rellinor/ExportReader.hpp>
#include <Rellinor/Extras.hpp>
#include <Rellinor/FailureReason.hpp>
#include <Rellinor/ImportReport.hpp>
#include <Rellinor/Layout.hpp>
#include <Rellinor/Models/ImportSource.hpp>
#include <Rellinor/Models/ImportedCardInfoProviding.hpp>
#include <Rellinor/Models/ImportedNoteInfoProviding.hpp>
#include <Rellinor/Models/ImportedPasswordInfoProviding.hpp>
#include <Rellinor/Models/ImportedRecords.hpp>
#include <Rellinor/Models/TirelExportData.hpp>
#include <Rellinor/NSError.hpp>
#include <Rellinor/RecordsImporter.hpp>
#include <Rellinor/RecordsImporting.hpp>
#include <Rellinor/URL.hpp>
