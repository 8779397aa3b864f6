/** Which views are shown, and where. */
import type { Pane } from './stage.ts';

export type Layout = 'side' | 'wipe' | 'shaken' | 'input' | 'outside' | 'all';
export const LAYOUTS: readonly Layout[] = ['side', 'wipe', 'shaken', 'input', 'outside', 'all'];

const whole = { x: 0, y: 0, width: 1, height: 1, from: 0, until: 1 };

/** Whether two pictures of a ratio are larger above each other than side by side. */
export const isStacked = (width: number, height: number, ratio: number): boolean => height * ratio > width;

/** `wipe` is where the wipe is, in shares of the picture. */
export function panesOf(layout: Layout, wipe: number, stacked: boolean): Pane[] {
    switch (layout) {
        case 'shaken': case 'input': case 'outside': return [{ ...whole, view: layout }];
        case 'wipe': return [{ ...whole, view: 'input', until: wipe }, { ...whole, view: 'shaken', from: wipe }];
        case 'side': return stacked
            ? [{ ...whole, view: 'input', height: 0.5 }, { ...whole, view: 'shaken', y: 0.5, height: 0.5 }]
            : [{ ...whole, view: 'input', width: 0.5 }, { ...whole, view: 'shaken', x: 0.5, width: 0.5 }];
        case 'all': return stacked
            ? (['input', 'shaken', 'outside'] as const).map((view, place) => ({ ...whole, view, y: place / 3, height: 1 / 3 }))
            : [{ ...whole, view: 'input', width: 0.5, height: 0.5 }, { ...whole, view: 'outside', y: 0.5, width: 0.5, height: 0.5 },
                { ...whole, view: 'shaken', x: 0.5, width: 0.5 }];
    }
}
