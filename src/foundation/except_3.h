#pragma once

#include <memory>

#include "foundation/memory.h"
#include "foundation/string_3.h"
#include "foundation/string_out.h"

/// A failure: nothing but its message. Everything that fails throws an except_3*; who
/// catches it without failure_of must delete it.
class except_3 final : public string_out {
public:
    static void* operator new(std::size_t size) { return pooled_3::operator new(size); }
    static void operator delete(void* pointer, std::size_t size) noexcept {
        pooled_3::operator delete(pointer, size);
    }
};

/// Runs an action, and gives the failure that it ends in, or null. Other exceptions pass.
///
///     if (const auto failure = failure_of([&] { load(path); })) report(failure->text());
template <typename Action>
std::unique_ptr<except_3> failure_of(Action&& action) {
    try {
        action();
    } catch (except_3* failure) {
        return std::unique_ptr<except_3>(failure);
    }
    return nullptr;
}

/// Composes a message and throws it:
///
///     (error_builder_3() << "Cannot open file" << path).fail();
///
/// The pieces are separated by blanks, with one before the first piece, too: the text above is
/// " Cannot open file", a blank and the path.
class error_builder_3 {
public:
    error_builder_3() : held_(new except_3) {}
    error_builder_3(const error_builder_3&) = delete;
    error_builder_3& operator=(const error_builder_3&) = delete;
    ~error_builder_3() { delete held_; }

    error_builder_3& operator<<(const char* text);
    error_builder_3& operator<<(char c);
    error_builder_3& operator<<(const string_3& text) { return *this << text.data; }

    /// Throws the message as an except_3*.
    [[noreturn]] void fail();

private:
    except_3* held_;
};

/// Fails with a message of one piece.
[[noreturn]] void fail_with(const char* message);
