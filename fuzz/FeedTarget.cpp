// The release feed, and the decision on what it offers.

#include "FuzzTarget.h"

#include "update/UpdateDecision.h"

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    Fuzz::begin(argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const std::optional<Update::Release> release = Update::releaseOf(Fuzz::bytes(data, size));
    if (!release)
        return 0;
    Update::channelOf(release->version);
    Update::isCheckDue(release->released, release->channel, QDate(2026, 1, 1));
    const Update::Build same{release->version, release->released};
    Fuzz::require(!Update::isOffer(*release, same, {}), QStringLiteral("offers the same version"));
    Fuzz::require(!Update::isOffer(*release, {"0.1.0", "2026-01-01"}, release->version) ||
                      release->version.isEmpty(),
                  QStringLiteral("offers a skipped version"));
    return 0;
}
