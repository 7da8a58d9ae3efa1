// Change notices from models to whoever shows them. A model never knows its views.
#pragma once

#include <cstddef>
#include <new>
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
    /// Tells the listeners, which may come and go meanwhile. The change is a fact by now, and part of a
    /// larger one perhaps: a listener that runs out of memory keeps neither it nor the other listeners from
    /// being complete, and reads the source again at the next change.
    void NotifyChanged() {
        try {
            const std::vector<ChangeListener*> now = listeners_;
            for (ChangeListener* listener : now) Tell(*listener);
        } catch (const std::bad_alloc&) {
            // Without the copy, one that goes takes its place away from under the walk: nobody is called
            // twice.
            for (std::size_t i = listeners_.size(); i > 0; --i)
                if (i <= listeners_.size()) Tell(*listeners_[i - 1]);
        }
    }

private:
    static void Tell(ChangeListener& listener) {
        try {
            listener.OnChanged();
        } catch (const std::bad_alloc&) {
        }
    }

    std::vector<ChangeListener*> listeners_;
};

}  // namespace tessel
