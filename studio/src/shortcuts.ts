/** What keys do wherever the focus is, but in fields. */
import { playhead, studio } from './app.ts';
import { showsKeys } from './bar.tsx';
import { withRange } from './model/look.ts';
import { joltHere } from './timeline/timeline.tsx';

const isField = (target: EventTarget | null): boolean =>
    target instanceof HTMLSelectElement || target instanceof HTMLTextAreaElement ||
    (target instanceof HTMLInputElement && !['checkbox', 'radio', 'file'].includes(target.type));
/** Space presses these. */
const isPressed = (target: EventTarget | null): boolean =>
    target instanceof HTMLButtonElement || target instanceof HTMLInputElement || (target instanceof HTMLElement && target.tagName === 'SUMMARY');

const atPlayhead = () => playhead.frame.peek();
const ACTIONS: Record<string, (event: KeyboardEvent) => void> = {
    j: () => playhead.shuttle(-1),
    k: () => playhead.play(0),
    l: () => playhead.shuttle(1),
    i: () => studio.edit((look) => withRange(look, { from: Math.min(atPlayhead(), look.range.until ?? Infinity) })),
    o: () => studio.edit((look) => withRange(look, { until: Math.max(atPlayhead(), look.range.from ?? -Infinity) })),
    m: joltHere,
    b: () => studio.swapOther(),
    '/': () => document.getElementById('search-settings')?.focus(),
    '?': () => { showsKeys.value = !showsKeys.value; },
    Home: () => playhead.go(studio.firstFrame.peek()),
    End: () => playhead.go(studio.lastFrame.peek()),
    ArrowLeft: ({ shiftKey }) => playhead.go(atPlayhead() - (shiftKey ? 10 : 1)),
    ArrowRight: ({ shiftKey }) => playhead.go(atPlayhead() + (shiftKey ? 10 : 1)),
    ' ': () => playhead.toggle(),
};

export function listen(): void {
    document.addEventListener('keydown', (event) => {
        const { key, target } = event;
        if ((event.ctrlKey || event.metaKey) && !event.altKey) {
            const isUndo = key.toLowerCase() === 'z' && !event.shiftKey, isRedo = key.toLowerCase() === 'y' || (key.toLowerCase() === 'z' && event.shiftKey);
            if (isField(target) || !(isUndo || isRedo)) return;
            event.preventDefault();
            if (isUndo) studio.undo();
            else studio.redo();
            return;
        }
        if (event.altKey || isField(target) || (key === ' ' && isPressed(target))) return;
        const isChoice = target instanceof HTMLInputElement && target.type === 'radio';
        if (isChoice && key.startsWith('Arrow')) return;
        const action = ACTIONS[key] ?? ACTIONS[key.toLowerCase()];
        if (action === undefined) return;
        event.preventDefault();
        action(event);
    });
}
