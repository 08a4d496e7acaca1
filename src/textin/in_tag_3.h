#pragma once

/// Gives each input object a number of its own, from 1 upward.
class in_tag_3 {
public:
    in_tag_3();
    in_tag_3(const in_tag_3&) : in_tag_3() {}
    in_tag_3& operator=(const in_tag_3&) { return *this; }

    int tag_number() const { return tag_; }

private:
    int tag_;
};
