// A process-wide object variable: used while it is empty, it is an error of the system, no crash.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/error.h"

namespace platform {

template <class T>
class ObjectVariable {
  public:
    explicit ObjectVariable(const char* name) : name_(name) {}

    ObjectVariable& operator=(std::unique_ptr<T> object) {
        object_ = std::move(object);
        return *this;
    }

    [[nodiscard]] explicit operator bool() const { return object_ != nullptr; }
    [[nodiscard]] T* operator->() const { return &**this; }

    [[nodiscard]] T& operator*() const {
        if (!object_) {
            throw RuntimeError(error_number::kObjectNotSet,
                               std::string("Object variable not set: ") + name_);
        }
        return *object_;
    }

    void Release() { object_.reset(); }

  private:
    const char* name_;
    std::unique_ptr<T> object_;
};

}  // namespace platform
