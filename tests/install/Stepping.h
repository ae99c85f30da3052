#pragma once

#include "platform/Files.h"
#include "support/Fake_Clock.h"

#include <functional>
#include <memory>
#include <utility>

namespace vantrosk {

/// Told before each step of a run.
using On_Step = std::function<void()>;

/// Passes everything on; every call that changes the disk is a step.
class Stepping_Files : public Files {
public:
    explicit Stepping_Files(std::unique_ptr<Files> files) : files_(std::move(files)) {}
    void set_on_step(On_Step on_step) { on_step_ = std::move(on_step); }

    QString to_native(const QString &path) const override { return files_->to_native(path); }
    QString to_windows(const QString &path) const override { return files_->to_windows(path); }
    std::optional<File_Info> look(const QString &path) const override { return files_->look(path); }
    Result<std::vector<File_Info>> list_folder(const QString &path) const override {
        return files_->list_folder(path);
    }
    Result<QByteArray> read_file(const QString &path, qint64 limit) const override {
        return files_->read_file(path, limit);
    }
    Result<QByteArray> read_start(const QString &path, qint64 count) const override {
        return files_->read_start(path, count);
    }
    QString real_path(const QString &path) const override { return files_->real_path(path); }

    Fault write_file(const QString &path, const QByteArray &bytes) override {
        step();
        return files_->write_file(path, bytes);
    }
    Fault append_file(const QString &path, const QByteArray &bytes) override {
        step();
        return files_->append_file(path, bytes);
    }
    Fault move_file(const QString &from, const QString &to) override {
        step();
        return files_->move_file(from, to);
    }
    Fault copy_file(const QString &from, const QString &to) override {
        step();
        return files_->copy_file(from, to);
    }
    Fault remove_file(const QString &path) override {
        step();
        return files_->remove_file(path);
    }
    Fault remove_folder(const QString &path) override {
        step();
        return files_->remove_folder(path);
    }
    Fault make_folder(const QString &path) override {
        step();
        return files_->make_folder(path);
    }
    Fault clear_attributes(const QString &path) override {
        step();
        return files_->clear_attributes(path);
    }
    Fault set_modified(const QString &path, const QDateTime &when) override {
        step();
        return files_->set_modified(path, when);
    }

private:
    void step() const {
        if (on_step_)
            on_step_();
    }

    std::unique_ptr<Files> files_;
    On_Step on_step_;
};

/// Asked before every file that is unpacked or looked for: that is a step too.
class Stepping_Clock : public Fake_Clock {
public:
    void set_on_step(On_Step on_step) { on_step_ = std::move(on_step); }
    qint64 ticks() const override {
        if (on_step_)
            on_step_();
        return Fake_Clock::ticks();
    }

private:
    On_Step on_step_;
};

} // namespace vantrosk
