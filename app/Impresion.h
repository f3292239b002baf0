#pragma once
// Printing a document (filled in by the printing work).
