#pragma once

#include <functional>
#include <utility>

namespace tavrix {

// The question the window asks before it starts transmission from a page (the safety
// notice). Without a question set the start goes ahead at once; the question calls proceed
// only when the user agrees, so a declined one starts nothing.
class StartConfirmation
{
public:
    using Proceed = std::function<void()>;
    using Ask = std::function<void(const Proceed &proceed)>;

    void setAsk(Ask ask) { m_ask = std::move(ask); }
    void request(const Proceed &proceed) const
    {
        if (m_ask)
            m_ask(proceed);
        else
            proceed();
    }

private:
    Ask m_ask;
};

} // namespace tavrix
