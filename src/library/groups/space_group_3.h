#pragma once

#include "catalogue/catalogue_scan_3.h"
#include "symmetry/rotation_catalogue_3.h"

/// A space group in one of its settings.
struct space_group_3 {
    sg_catalogue_entry_3 entry;  ///< its record in the catalogue, with the point group
    xyz_list_3 ops;              ///< its operators, centring included: normalised and sorted
};

/// Finds a group by its symbol in all forms that the tool takes, such as `F_d_d_d` or `P 21/c`, in
/// the data files. Fails with " No Spacegroup", " Error in space group symbol" or " Space group not
/// found in lomar5.txt", or when a data file is missing or malformed.
space_group_3 space_group_of(const char* symbol);

/// The groups of a catalogue in memory. No file is opened, unless at construction.
class space_groups_3 {
public:
    /// Reads the data files.
    space_groups_3();
    /// Takes the texts of lomar5.txt and sgrots3.txt, such as a program has compiled in. Fails when
    /// a text is malformed.
    space_groups_3(const data_text_3& catalogue, const data_text_3& rotations);

    /// As space_group_of.
    space_group_3 find(const char* symbol) const;
    /// The group of a record that scan() or find_catalogue_entry gave.
    space_group_3 group_of(const sg_catalogue_entry_3& entry) const;
    /// Goes through all names, and so through all settings. The object must outlive the scan.
    catalogue_scan_3 scan() const { return catalogue_scan_3(catalogue_.text()); }

private:
    data_text_3 catalogue_;
    rotation_catalogue_3 rotations_;
};
