// Why a call of the library failed that gives no reason itself.
#pragma once

namespace dbsection {

/// Keeps the library's messages from now on, in place of showing them: the commands tell in their
/// own words what failed.
void KeepMessages();

/// Forgets what the library has reported so far.
void ForgetMessages();

/// Throws a CommandError of what the library has reported since, if anything.
void ThrowFailure();

/// What a call of the library returns; throws CommandError where it reports a failure.
template <class Call>
auto AskLibrary(Call call) {
    ForgetMessages();
    auto answer = call();
    ThrowFailure();
    return answer;
}

} // namespace dbsection
