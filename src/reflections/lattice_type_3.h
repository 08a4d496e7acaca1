#pragma once

#include "symmetry/xyz_op_3.h"

/// Which reflections the centring of a lattice lets exist; this class stands for `p`, which lets
/// all of them. A caller asks hk_allowed first, for a whole run of l: neither operation alone need
/// be the whole condition.
class lattice_type_3 {
public:
    /// The condition on the whole reflection, less what hk_allowed has decided. 1 or 0.
    virtual int hkl_allowed(int h, int k, int l) const;
    /// What h and k alone decide. 1 or 0.
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

/// The lattice letter of a complete list of operators, one of "pabcifr", from the operators alone.
char lattice_letter_3(const xyz_list_3& ops);

/// The instance for that letter; it lasts for the whole run.
const lattice_type_3& lattice_of_3(const xyz_list_3& ops);
