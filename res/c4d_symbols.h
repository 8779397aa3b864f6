enum {
    // The module's texts come from its code; the application asks for this file all the same.
    TREMOLUXCAM_NO_STRINGS = 10000
};
