#pragma once

#include "symmetry/xyz_op_3.h"

/// Which reflections the centring of a lattice lets exist; this class is for `p`, which allows all
/// of them. A reflection must pass both questions, of which the second saves the first for a line
/// of l.
class lattice_type_3 {
public:
    /// 0 if the three indices don't go together, else 1. It may leave out what hk_allowed sees.
    virtual int hkl_allowed(int h, int k, int l) const;
    /// 0 if there are no reflections with this h and k, whatever their l, else 1.
    virtual int hk_allowed(int h, int k) const;
};

class a_lattice_type_3 : public lattice_type_3 {
public:
    int hkl_allowed(int h, int k, int l) const override;
};

class b_lattice_type_3 : public lattice_type_3 {
public:
    int hkl_allowed(int h, int k, int l) const override;
};

class c_lattice_type_3 : public lattice_type_3 {
public:
    int hk_allowed(int h, int k) const override;
};

class i_lattice_type_3 : public lattice_type_3 {
public:
    int hkl_allowed(int h, int k, int l) const override;
};

class f_lattice_type_3 : public lattice_type_3 {
public:
    int hkl_allowed(int h, int k, int l) const override;
    int hk_allowed(int h, int k) const override;
};

/// Rhombohedral on hexagonal axes, in the obverse or the reverse setting.
class rr_lattice_type_3 : public lattice_type_3 {
public:
    int hkl_allowed(int h, int k, int l) const override;
};

/// Finds out how a group is centred, as a letter of "pabcifr". The list must hold the centred
/// operators, too.
char lattice_letter_3(const xyz_list_3& ops);

/// The class for the letter of these operators. The object stays.
const lattice_type_3& lattice_of_3(const xyz_list_3& ops);
