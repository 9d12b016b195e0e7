#pragma once
// The imaging library's automation objects, as far as the program uses them: it creates them by their
// program identifiers to prove that the library can be started on the board.

#include <memory>

namespace ocuva {

/// One automation object; destroying it releases it.
class AutomationObject {
public:
    virtual ~AutomationObject() = default;
    /// Sets a text property. False if the object refuses it.
    virtual bool setProperty(const char* name, const char* value) = 0;
};

/// Creates automation objects.
class Automation {
public:
    virtual ~Automation() = default;
    /// Null if the class is not registered or cannot be started.
    virtual std::unique_ptr<AutomationObject> create(const char* programIdentifier) = 0;
};

/// For systems without automation: no class is registered.
class NoAutomation final : public Automation {
public:
    std::unique_ptr<AutomationObject> create(const char* /*programIdentifier*/) override { return nullptr; }
};

} // namespace ocuva
