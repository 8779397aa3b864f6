/** Undo and redo without a limit: states are never changed, so that a history is a list of them. */
export interface History<State> {
    readonly past: readonly State[];
    readonly present: State;
    readonly future: readonly State[];
    /** Edits of one gesture, a slider on its way for instance, are one step. */
    readonly gesture: string | null;
}

export const begun = <State>(present: State): History<State> => ({ past: [], present, future: [], gesture: null });

export function edited<State>(history: History<State>, present: State, gesture: string | null = null): History<State> {
    if (present === history.present) return history;
    const goesOn = gesture !== null && gesture === history.gesture;
    return { past: goesOn ? history.past : [...history.past, history.present], present, future: [], gesture };
}
/** The next edit is a step of its own. */
export const settled = <State>(history: History<State>): History<State> => ({ ...history, gesture: null });

export function undone<State>(history: History<State>): History<State> {
    const present = history.past.at(-1);
    if (present === undefined) return history;
    return { past: history.past.slice(0, -1), present, future: [history.present, ...history.future], gesture: null };
}
export function redone<State>(history: History<State>): History<State> {
    const [present, ...future] = history.future;
    if (present === undefined) return history;
    return { past: [...history.past, history.present], present, future, gesture: null };
}
