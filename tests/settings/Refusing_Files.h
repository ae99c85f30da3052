#pragma once

#include "install/Stepping.h"

namespace vantrosk {

/// A disk that refuses changes: one that is full, or that nobody has rights on.
class Refusing_Files : public Stepping_Files {
public:
    using Stepping_Files::Stepping_Files;

    /// Changes are counted from 1; from `first` to `last` they are refused.
    void refuse(int first, int last) {
        first_ = first;
        last_ = last;
        changes_ = 0;
    }
    int changes() const { return changes_; }

    Fault write_file(const QString &path, const QByteArray &bytes) override {
        const Fault fault = refusal(path);
        return fault ? fault : Stepping_Files::write_file(path, bytes);
    }
    Fault move_file(const QString &from, const QString &to) override {
        const Fault fault = refusal(to);
        return fault ? fault : Stepping_Files::move_file(from, to);
    }
    Fault copy_file(const QString &from, const QString &to) override {
        const Fault fault = refusal(to);
        return fault ? fault : Stepping_Files::copy_file(from, to);
    }
    Fault remove_file(const QString &path) override {
        const Fault fault = refusal(path);
        return fault ? fault : Stepping_Files::remove_file(path);
    }
    Fault make_folder(const QString &path) override {
        const Fault fault = refusal(path);
        return fault ? fault : Stepping_Files::make_folder(path);
    }

private:
    Fault refusal(const QString &path) {
        ++changes_;
        if (changes_ < first_ || changes_ > last_)
            return {};
        return {Fault_Kind::no_space, "There is no room for \"" + path + "\".", 28};
    }
    int first_ = 0, last_ = -1, changes_ = 0;
};

} // namespace vantrosk
