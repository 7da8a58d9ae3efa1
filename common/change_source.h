// Change notices from models to whoever shows them. A model never knows its views.
#pragma once

#include <algorithm>
#include <vector>

namespace tessel {

class ChangeListener {
public:
    virtual ~ChangeListener() = default;
    /// The source changed; read it again. Called after the change, on the same thread.
    virtual void OnChanged() = 0;
};

/// Listeners are not owned and must remove themselves before they die. They belong to the object, not to its
/// contents: a copy starts without any, and assignment keeps those of the target (and notifies nobody).
class ChangeSource {
public:
    ChangeSource() = default;
    ChangeSource(const ChangeSource&) {}
    ChangeSource& operator=(const ChangeSource&) { return *this; }

    void AddListener(ChangeListener* listener) { listeners_.push_back(listener); }
    void RemoveListener(ChangeListener* listener) { std::erase(listeners_, listener); }

protected:
    void NotifyChanged() {
        const std::vector<ChangeListener*> now = listeners_;
        for (ChangeListener* listener : now) listener->OnChanged();
    }

private:
    std::vector<ChangeListener*> listeners_;
};

}  // namespace tessel
