/** A line of the timeline, and marks on it that are dragged, moved by keys and removed. */
import type { ComponentChildren, JSX } from 'preact';
import { useLayoutEffect, useRef } from 'preact/hooks';
import { playhead, studio, visible } from '../app.ts';
import type { Look } from '../model/look.ts';

/** In per cent of the line's width. */
export const placeOf = (frame: number): number => {
    const { first, last } = visible.value;
    return ((frame - first) / Math.max(1, last - first)) * 100;
};
export function frameAt(event: { clientX: number }, line: HTMLElement): number {
    const { left, width } = line.getBoundingClientRect();
    const { first, last } = visible.peek();
    const frame = Math.round(first + ((event.clientX - left) / Math.max(1, width)) * (last - first));
    return Math.min(Math.max(frame, studio.firstFrame.peek()), studio.lastFrame.peek());
}
export const arrowStep = ({ key, shiftKey }: KeyboardEvent): number =>
    (key === 'ArrowLeft' ? -1 : key === 'ArrowRight' ? 1 : 0) * (shiftKey ? 10 : 1);
const clamped = (frame: number) => Math.min(Math.max(frame, studio.firstFrame.peek()), studio.lastFrame.peek());

interface MarksProps {
    readonly label: string;
    readonly marks: readonly { readonly frame: number; readonly label: string; readonly isSelected: boolean; readonly size?: number }[];
    readonly shape: 'jolt' | 'key';
    /** The look with a mark elsewhere. */
    readonly moved: (look: Look, from: number, to: number) => Look;
    readonly removed: (look: Look, frame: number) => Look;
    readonly select: (frame: number | null) => void;
    readonly children?: ComponentChildren;
}

export function Marks({ label, marks, shape, moved, removed, select, children }: MarksProps) {
    const line = useRef<HTMLDivElement>(null), follow = useRef<number | null>(null);
    // A mark that went elsewhere is another element, and the next press may come at once.
    useLayoutEffect(() => {
        if (follow.current === null) return;
        line.current?.querySelector<HTMLElement>(`[data-frame="${follow.current}"]`)?.focus();
        follow.current = null;
    });
    const drag = (event: JSX.TargetedPointerEvent<HTMLDivElement>) => {
        const mark = (event.target as HTMLElement).closest<HTMLElement>('[data-frame]');
        if (mark === null || event.button !== 0) return;
        const lane = event.currentTarget, from = Number(mark.dataset.frame), before = studio.look.peek(), gesture = `drag ${Math.random()}`;
        lane.setPointerCapture(event.pointerId);
        select(from);
        // From where it began, so that a mark that it passes over stays.
        const move = (now: PointerEvent) => {
            const to = frameAt(now, lane);
            studio.edit(() => moved(before, from, to), gesture);
            select(to);
        };
        const end = () => {
            lane.removeEventListener('pointermove', move);
            studio.settle();
        };
        lane.addEventListener('pointermove', move);
        lane.addEventListener('lostpointercapture', end, { once: true });
    };
    const press = (event: JSX.TargetedKeyboardEvent<HTMLButtonElement>, frame: number) => {
        const step = arrowStep(event);
        if (step !== 0) {
            const to = clamped(frame + step);
            follow.current = to;
            studio.edit((look) => moved(look, frame, to));
            select(to);
        } else if (event.key === 'Delete' || event.key === 'Backspace') {
            studio.edit((look) => removed(look, frame));
            select(null);
        } else if (event.key === 'Enter') {
            playhead.go(frame);
        } else {
            return;
        }
        event.preventDefault();
        event.stopPropagation();
    };
    return (
        <div class="lane">
            <span class="lane-name">{label}</span>
            <div class="line" ref={line} onPointerDown={drag}>
                {children}
                {marks.map(({ frame, label: name, isSelected, size }) => (
                    <button key={frame} type="button" class={`mark ${shape}${isSelected ? ' selected' : ''}`} data-frame={frame} aria-label={name}
                        title={name} aria-pressed={isSelected} style={{ left: `${placeOf(frame)}%`, ...(size === undefined ? {} : { '--size': size }) }}
                        onFocus={() => select(frame)} onKeyDown={(event) => press(event, frame)} />))}
            </div>
        </div>
    );
}
