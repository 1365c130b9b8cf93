/// The whole public surface of Rellinor. Needs nothing but the standard library.
#pragma once

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
